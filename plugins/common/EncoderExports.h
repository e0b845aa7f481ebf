// Turns a class into the exports of an encoder library: ZT_ENCODER_EXPORTS(clMyEncoder). The class
// derives from EncoderBase and has
//     static constexpr const wchar_t* extension;
//     static bool Check(const wchar_t* settings, XString& error);
//     static std::uint64_t EstimateBytes(const PcmFormat&, std::uint64_t lengthMs, const wchar_t* settings);
//     bool Begin(const EncoderBeginBlock&);   format is set already
//     bool Encode(const void* samples, std::uint32_t frames);
//     bool End(bool completed);
//     a PanelWindow of its own, `panel`
// and may have
//     static constexpr bool needsNoFolder = true;   writes no files: where to is no question
#pragma once

#include "plugins/common/Exports.h"
#include "plugins/common/PcmFormat.h"
#include "plugins/common/WrittenTags.h"

class EncoderBase {
public:
    bool Fail(const XString& text) {
        lastError = text;
        return false;
    }

    // A line for the information log; an empty one is none.
    void Inform(const XString& line) {
        if (!line.IsEmpty())
            information += (information.IsEmpty() ? XString() : XString(L"\n")) + line;
    }

    // What a decoder will find in the file; Begin says both. Bits of 0: they are not compared.
    void WritesFormat(int channels, std::uint32_t frequency, int bits = 0, bool isFloat = false) {
        written = AudioFormatRecord{};
        written.sampleKind = isFloat ? ztSampleFloat : ztSampleInteger;
        written.channels = static_cast<std::uint16_t>(channels);
        written.frequency = frequency;
        written.bitsPerSample = static_cast<std::uint16_t>(bits);
    }
    // Tells the user, too, what was left out.
    void WritesTags(const wchar_t* target, const XTagList& tags, const LeftOutTags& leftOut,
                    TagValues values = TagValues::separate) {
        Inform(leftOut.Text(target));
        XTagList list;
        ForetellTags(tags, leftOut, values, list);
        (void)list.Serialize(writtenTags); // without memory nothing is compared
    }

    PcmFormat format;    // what Encode gets
    XString lastError;   // of Begin, Encode or End
    XString checkError;  // of the last check of settings
    XString information; // lines, since Begin
    AudioFormatRecord written{};
    XBuffer writtenTags;
};

template <class Encoder>
std::int32_t EncoderGetKey(Encoder& encoder, const wchar_t* key, PluginParams& params) {
    const XString name = key;
    if (name == ZtKey::extension) {
        params.text1 = Encoder::extension;
        return 1;
    }
    if (name == ZtKey::checkSettings) {
        encoder.checkError.Clear();
        if (Encoder::Check(params.text1, encoder.checkError))
            return 1;
        params.text2 = encoder.checkError;
        return 0;
    }
    if (name == ZtKey::estimatedFileSize) {
        PcmFormat source;
        XString error;
        if (params.number < 0 ||
            !ReadFormat(static_cast<const AudioFormatRecord*>(params.data), source, error) ||
            !Encoder::Check(params.text1, error))
            return 0;
        const std::uint64_t lengthMs = static_cast<std::uint64_t>(params.number);
        params.result = static_cast<std::int64_t>(Encoder::EstimateBytes(source, lengthMs, params.text1));
        return 1;
    }
    if (name == ZtKey::lastError && !encoder.lastError.IsEmpty()) {
        params.text1 = encoder.lastError;
        return 1;
    }
    if (name == ZtKey::information && !encoder.information.IsEmpty()) {
        params.text1 = encoder.information;
        return 1;
    }
    if (name == ZtKey::writtenFormat && encoder.written.channels > 0) {
        params.data = &encoder.written;
        return 1;
    }
    if (name == ZtKey::writtenTags && encoder.writtenTags.size > 0) {
        params.data = encoder.writtenTags.data;
        params.dataSize = static_cast<std::uint32_t>(encoder.writtenTags.size);
        return 1;
    }
    if constexpr (requires { Encoder::needsNoFolder; })
        if (name == ZtKey::disableConvertToFolder)
            return 1;
    return 0; // runs on several processors at once, needs no effect
}

template <class Encoder>
bool EncoderBegin(Encoder& encoder, const EncoderBeginBlock* block) {
    encoder.lastError.Clear();
    encoder.information.Clear();
    encoder.written = AudioFormatRecord{};
    encoder.writtenTags.Free();
    if (!block || block->size < sizeof(EncoderBeginBlock) || !block->outputPath)
        return encoder.Fail(L"The encoder was started without an output");
    encoder.format = PcmFormat();
    return ReadFormat(block->format, encoder.format, encoder.lastError) &&
           Encoder::Check(block->settings, encoder.lastError) && encoder.Begin(*block);
}

#define ZT_ENCODER_EXPORTS(Encoder)                                                                          \
    ZT_EXPORT ZtInstance ENC_Create(PluginCreateBlock*) noexcept {                                           \
        return CreateInstance<Encoder>();                                                                    \
    }                                                                                                        \
    ZT_EXPORT void ENC_Destroy(ZtInstance instance) noexcept {                                               \
        delete static_cast<Encoder*>(instance);                                                              \
    }                                                                                                        \
    ZT_EXPORT std::int32_t ENC_Get(ZtInstance instance, const wchar_t* key, PluginParams* params) noexcept { \
        return GuardedCall<Encoder>(instance, 0, [&](Encoder& encoder) {                                     \
            return key && params ? EncoderGetKey(encoder, key, *params) : 0;                                 \
        });                                                                                                  \
    }                                                                                                        \
    ZT_EXPORT std::int32_t ENC_Set(ZtInstance, const wchar_t*, PluginParams*) noexcept {                     \
        return 0;                                                                                            \
    }                                                                                                        \
    ZT_EXPORT void ENC_ShowConfigBit(ZtInstance instance, void* parent, std::int32_t x, std::int32_t y,      \
                                     const wchar_t* settings) noexcept {                                     \
        ShowPanel<Encoder>(instance, parent, x, y, settings);                                                \
    }                                                                                                        \
    ZT_EXPORT const wchar_t* ENC_RemoveConfigBit(ZtInstance instance, void* parent) noexcept {               \
        return RemovePanel<Encoder>(instance, parent);                                                       \
    }                                                                                                        \
    ZT_EXPORT std::int32_t ENC_BeginConversion(ZtInstance instance,                                          \
                                               const EncoderBeginBlock* block) noexcept {                    \
        return GuardedCall<Encoder>(instance, 0,                                                             \
                                    [&](Encoder& encoder) { return EncoderBegin(encoder, block) ? 1 : 0; }); \
    }                                                                                                        \
    ZT_EXPORT std::int32_t ENC_EndConversion(ZtInstance instance, std::int32_t completed) noexcept {         \
        return GuardedCall<Encoder>(instance, 0,                                                             \
                                    [&](Encoder& encoder) { return encoder.End(completed != 0) ? 1 : 0; });  \
    }                                                                                                        \
    ZT_EXPORT std::int32_t ENC_EncodeBlock(ZtInstance instance, const void* samples,                         \
                                           std::uint32_t frames) noexcept {                                  \
        return GuardedCall<Encoder>(instance, 0, [&](Encoder& encoder) {                                     \
            return frames == 0 || (samples && encoder.Encode(samples, frames)) ? 1 : 0;                      \
        });                                                                                                  \
    }
