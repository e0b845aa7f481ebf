// The encoder library "Opus": through libopusenc, which brings every rate to 48 kHz and tells readers
// exactly where the audio starts and ends.
#include "foundation/XTagList.h"
#include "plugins/common/EncoderExports.h"
#include "plugins/common/OutputFile.h"
#include "plugins/encoder/OpusGains.h"
#include "plugins/encoder/OpusOptions.h"
#include "plugins/encoder/OpusPanel.h"
#include "plugins/encoder/VorbisChannels.h"
#include "plugins/encoder/VorbisComments.h"

#include <opusenc.h>

#include <algorithm>
#include <memory>

namespace {

constexpr std::uint32_t highestFrequency = 48000;           // and that of every decoder
constexpr std::uint32_t runFrames = 8192;                   // frames per call of the library
constexpr std::size_t commentRoom = std::size_t(120) << 20; // readers may refuse more (RFC 7845, 5.2)

struct DeleteOpus {
    void operator()(OggOpusEnc* encoder) const noexcept { ope_encoder_destroy(encoder); }
    void operator()(OggOpusComments* comments) const noexcept { ope_comments_destroy(comments); }
};

struct OpusChoice {
    int rate = OpusOption::usualRate; // kbit/s for stereo
    int mode = OpusOption::vbr;
    int complexity = OpusOption::mostEffort;
};

bool ReadChoice(const wchar_t* text, OpusChoice& choice, XString& error) {
    Settings settings;
    if (!settings.Parse(text, OpusOption::all, error))
        return false;
    choice.rate = static_cast<int>(settings.Number(L"bitrate", OpusOption::usualRate));
    choice.complexity = static_cast<int>(settings.Number(L"complexity", OpusOption::mostEffort));
    const XString mode = settings.Word(L"mode", L"vbr");
    choice.mode = mode.EqualsNoCase(L"cbr")    ? OpusOption::constant
                  : mode.EqualsNoCase(L"cvbr") ? OpusOption::constrained
                                               : OpusOption::vbr;
    return true;
}

class clOpusEncoder : public EncoderBase {
public:
    static constexpr const wchar_t* extension = L".opus";
    static bool Check(const wchar_t* text, XString& error) {
        OpusChoice choice;
        return ReadChoice(text, choice, error);
    }
    static std::uint64_t EstimateBytes(const PcmFormat& source, std::uint64_t lengthMs, const wchar_t* text) {
        OpusChoice choice;
        XString error;
        (void)ReadChoice(text, choice, error);
        const int rate = OpusOption::WholeRate(choice.rate, source.channels);
        return lengthMs * static_cast<std::uint64_t>(rate) / 8; // kbit/s times ms are bits
    }
    bool Begin(const EncoderBeginBlock& block);
    bool Encode(const void* samples, std::uint32_t frames);
    bool End(bool completed);

    OpusPanel panel;

private:
    bool FillComments(const EncoderBeginBlock& block, int& serial);
    bool Start(const OpusChoice& choice, int serial);
    bool OpusFailed(int code);

    OutputFile file;
    VorbisChannels channels;
    std::unique_ptr<OggOpusComments, DeleteOpus> comments;
    std::unique_ptr<OggOpusEnc, DeleteOpus> encoder; // last: its end may still write
    std::vector<float> floats;
    bool hasFrames = false;
};

bool clOpusEncoder::OpusFailed(int code) {
    if (file.HasFailed())
        return Fail(file.Error());
    XString reason;
    reason.Assign(ope_strerror(code));
    return Fail(L"Opus can't encode this: " + reason);
}

bool clOpusEncoder::FillComments(const EncoderBeginBlock& block, int& serial) {
    XTagList tags;
    if (block.tagData)
        tags.Deserialize(block.tagData, block.tagDataSize);
    LeftOutTags leftOut;
    TurnIntoOpusGains(tags, leftOut);
    VorbisComments texts(commentRoom);
    texts.AddTags(tags, leftOut);
    texts.AddPictures(tags, leftOut);
    WritesFormat(channels.count, highestFrequency);
    WritesTags(L"Opus", tags, leftOut);
    serial = texts.SerialNumber();
    comments.reset(ope_comments_create());
    bool added = comments != nullptr;
    for (const std::string& field : texts.fields)
        added = added && ope_comments_add_string(comments.get(), field.c_str()) == OPE_OK;
    return added || Fail(L"Out of memory");
}

bool clOpusEncoder::Start(const OpusChoice& choice, int serial) {
    static constexpr OpusEncCallbacks callbacks = {
        [](void* self, const unsigned char* bytes, opus_int32 count) {
            const bool written =
                static_cast<clOpusEncoder*>(self)->file.Write(bytes, static_cast<std::uint64_t>(count));
            return written ? 0 : 1;
        },
        [](void*) { return 0; }};
    int error = OPE_OK;
    const int family = channels.count > 2 ? 1 : 0; // of channel mappings: surround, or mono and stereo
    encoder.reset(ope_encoder_create_callbacks(&callbacks, this, comments.get(),
                                               static_cast<opus_int32>(format.frequency), channels.count,
                                               family, &error));
    if (!encoder)
        return OpusFailed(error);
    const int rate = OpusOption::WholeRate(choice.rate, channels.count) * 1000;
    for (const int code :
         {ope_encoder_ctl(encoder.get(), OPE_SET_SERIALNO(serial)),
          ope_encoder_ctl(encoder.get(), OPUS_SET_BITRATE(rate)),
          ope_encoder_ctl(encoder.get(), OPUS_SET_VBR(choice.mode != OpusOption::constant)),
          ope_encoder_ctl(encoder.get(), OPUS_SET_VBR_CONSTRAINT(choice.mode == OpusOption::constrained)),
          ope_encoder_ctl(encoder.get(), OPUS_SET_COMPLEXITY(choice.complexity))})
        if (code != OPE_OK)
            return OpusFailed(code);
    return true;
}

bool clOpusEncoder::Begin(const EncoderBeginBlock& block) {
    encoder.reset();
    hasFrames = false;
    OpusChoice choice;
    int serial = 0;
    if (!ReadChoice(block.settings, choice, lastError))
        return false;
    if (format.channels > VorbisChannels::most)
        return Fail(L"Opus has places for up to 8 channels, and the source has " +
                    DecimalText(format.channels));
    channels.Choose(format);
    Inform(channels.Information(L"Opus", format));
    if (format.frequency > highestFrequency)
        Inform(RateText(L"Opus", format.frequency, highestFrequency));
    if (!FillComments(block, serial))
        return false;
    if (!file.Create(block.outputPath))
        return Fail(file.Error());
    return Start(choice, serial);
}

bool clOpusEncoder::Encode(const void* samples, std::uint32_t frames) {
    if (!encoder)
        return Fail(L"Opus was not started");
    hasFrames = hasFrames || frames > 0;
    const unsigned char* at = static_cast<const unsigned char*>(samples);
    floats.resize(std::size_t(runFrames) * static_cast<std::size_t>(channels.count));
    while (frames > 0) {
        const std::uint32_t run = std::min(frames, runFrames);
        channels.Convert(format, at, floats.data(), run);
        const int code = ope_encoder_write_float(encoder.get(), floats.data(), static_cast<int>(run));
        if (code != OPE_OK)
            return OpusFailed(code);
        at += std::size_t(run) * static_cast<std::size_t>(format.channels) * 4;
        frames -= run;
    }
    return true;
}

bool clOpusEncoder::End(bool completed) {
    if (!completed) {
        file.Abandon();
        encoder.reset();
        return true;
    }
    if (!encoder)
        return Fail(L"Opus was not started");
    // The library has no end for audio without a start: a source without frames becomes one of silence.
    const std::vector<std::int32_t> silence(static_cast<std::size_t>(format.channels));
    if (!hasFrames && !Encode(silence.data(), 1))
        return false;
    const int code = ope_encoder_drain(encoder.get());
    if (code != OPE_OK)
        return OpusFailed(code);
    encoder.reset();
    return file.Close() || Fail(file.Error());
}

} // namespace

ZT_ENCODER_EXPORTS(clOpusEncoder)
