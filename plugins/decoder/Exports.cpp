// The exports of the decoder library: one Decoder per instance, nothing thrown across the border.
#include "contract/Keys.h"
#include "contract/Plugin.h"
#include "plugins/decoder/AudioStream.h"
#include "plugins/decoder/Formats.h"
#include "plugins/decoder/Properties.h"

#include <new>

extern "C" {
#include <libavutil/log.h>
}

namespace {

constexpr wchar_t description[] = L"FFmpeg audio formats";
constexpr wchar_t leftOutText[] = L"Not carried over from the source: ";

class Decoder {
public:
    bool Open(DecoderOpenBlock& block);
    void Close() noexcept;
    std::int32_t Get(const wchar_t* key, PluginParams& parameters);
    bool DeleteTag(const wchar_t* key);

    AudioStream stream;
    XString error;
    XString tagInformation;
    XString information; // the answer to the last question for it

private:
    const DecoderFormat* lastNamed = nullptr;
    XTagList tags;
    XTagList properties;
    XBuffer tagImage; // lives until Close, as the contract says
    XBuffer propertyImage;
};

bool Decoder::Open(DecoderOpenBlock& block) {
    Close();
    const XString path = block.path;
    if (!stream.Open(path, block.format)) {
        error = stream.Error();
        stream.Close();
        return false;
    }
    if (block.wanted != ztOpenAll)
        return true;
    const TagFacts facts = CollectTags(stream, path, tags);
    tagInformation = facts.unread.Text();
    if (!facts.leftOut.IsEmpty())
        tagInformation += (tagInformation.IsEmpty() ? L"" : L"\n") + (leftOutText + facts.leftOut);
    CollectProperties(stream, path, facts, tags.Count() > 0, properties);
    if (tags.Count() > 0 && tags.Serialize(tagImage)) {
        block.tagData = tagImage.data;
        block.tagDataSize = static_cast<std::uint32_t>(tagImage.size);
    }
    if (properties.Count() > 0 && properties.Serialize(propertyImage)) {
        block.propertyData = propertyImage.data;
        block.propertyDataSize = static_cast<std::uint32_t>(propertyImage.size);
    }
    return true;
}

void Decoder::Close() noexcept {
    stream.Close();
    tags.Clear();
    properties.Clear();
    tagImage.Free();
    propertyImage.Free();
    tagInformation.Clear();
}

bool Decoder::DeleteTag(const wchar_t* key) {
    bool deleted = false;
    for (XTagList* list : {&tags, &properties})
        for (std::int64_t i = list->Count() - 1; i >= 0; --i)
            if ((*list)[i].key.EqualsNoCase(key)) {
                list->RemoveAt(i);
                deleted = true;
            }
    return deleted;
}

std::int32_t Decoder::Get(const wchar_t* key, PluginParams& parameters) {
    const XString name = key;
    if (name == ZtKey::decodes) {
        const DecoderFormat* format = FormatAt(parameters.index);
        if (!format) {
            lastNamed = nullptr;
            return 0;
        }
        lastNamed = format;
        parameters.text1 = format->extension;
        parameters.text2 = format->description;
        return 1;
    }
    if (name == ZtKey::decoderDescription) {
        // Who looks for a format asks for one after the other and stops at it.
        parameters.text1 = lastNamed ? lastNamed->description : description;
        return 1;
    }
    if (name == ZtKey::information) {
        information = stream.DamageText();
        if (!tagInformation.IsEmpty())
            information.Extend(information.IsEmpty() ? tagInformation : L"\n" + tagInformation);
        parameters.text1 = information;
        return information.IsEmpty() ? 0 : 1;
    }
    if (name == ZtKey::lastError && !error.IsEmpty()) {
        parameters.text1 = error;
        return 1;
    }
    return 0;
}

// Runs a call on an instance; what is thrown inside becomes the answer of a failure.
template <class Result, class Call>
Result Guarded(ZtInstance instance, Result failure, Call call) noexcept {
    if (!instance)
        return failure;
    try {
        return call(*static_cast<Decoder*>(instance));
    } catch (...) { // allocation, or TagLib on a hostile file
        return failure;
    }
}

} // namespace

#define ZT_EXPORT extern "C" __declspec(dllexport)

ZT_EXPORT ZtInstance Create(PluginCreateBlock*) noexcept {
    av_log_set_level(AV_LOG_QUIET);
    return new (std::nothrow) Decoder;
}

ZT_EXPORT void Destroy(ZtInstance instance) noexcept {
    delete static_cast<Decoder*>(instance);
}

ZT_EXPORT std::int32_t Get(ZtInstance instance, const wchar_t* key, PluginParams* parameters) noexcept {
    return Guarded(instance, 0,
                   [&](Decoder& decoder) { return key && parameters ? decoder.Get(key, *parameters) : 0; });
}

ZT_EXPORT std::int32_t Set(ZtInstance, const wchar_t*, PluginParams*) noexcept {
    return 0;
}

ZT_EXPORT std::int32_t Open(ZtInstance instance, DecoderOpenBlock* block) noexcept {
    return Guarded(instance, 0,
                   [&](Decoder& decoder) { return block && block->path && decoder.Open(*block) ? 1 : 0; });
}

ZT_EXPORT void Close(ZtInstance instance) noexcept {
    if (instance)
        static_cast<Decoder*>(instance)->Close();
}

ZT_EXPORT std::int32_t DecodeBlock(ZtInstance instance, void* samples, std::uint32_t maxFrames) noexcept {
    return Guarded(instance, -1, [&](Decoder& decoder) {
        const int done = samples ? decoder.stream.Decode(samples, maxFrames) : -1;
        if (done < 0)
            decoder.error = decoder.stream.Error();
        return done;
    });
}

ZT_EXPORT std::int32_t SetPosition(ZtInstance instance, std::uint64_t frame) noexcept {
    return Guarded(instance, 0, [&](Decoder& decoder) {
        const bool done = decoder.stream.SeekTo(frame);
        if (!done)
            decoder.error = decoder.stream.Error();
        return done ? 1 : 0;
    });
}

ZT_EXPORT std::int32_t DeleteATag(ZtInstance instance, const wchar_t* key) noexcept {
    return Guarded(instance, 0, [&](Decoder& decoder) { return key && decoder.DeleteTag(key) ? 1 : 0; });
}
