#include "host/ReadAhead.h"

#include "host/DecoderCatalogue.h"
#include "host/TagFilter.h"

std::atomic<bool> NeedsTags{false};

namespace {

// What a decoder says of its images is believed up to here: a size beyond it is nonsense.
constexpr std::uint32_t largestImage = 256u << 20; // bytes

bool IsImage(const void* image, std::uint32_t size) {
    return image && size != 0 && size <= largestImage;
}

void TakeImages(clFileItem& item, const DecoderOpenBlock& block) {
    if (IsImage(block.tagData, block.tagDataSize) &&
        !FilterTagImage(block.tagData, block.tagDataSize, item.tagImage))
        item.tagImage.Free();
    if (IsImage(block.propertyData, block.propertyDataSize) &&
        !item.propertyImage.Set(block.propertyData, block.propertyDataSize))
        item.propertyImage.Free();
}

void Probe(clFileItem& item, clZtDecoder& decoder, bool withTags) {
    PluginCreateBlock create{};
    if (!OpenDecoderFor(item.sourcePath, decoder, &create))
        return;
    DecoderOpenBlock block{};
    block.path = item.sourcePath;
    block.wanted = withTags ? ztOpenAll : ztOpenFormat;
    if (decoder.AskOpen(block) == 0)
        return;
    item.format = block.format;
    if (withTags)
        TakeImages(item, block);
}

} // namespace

void ProbeSourceFiles(XEvent* quit, void* argument) noexcept {
    const clFileList& files = *static_cast<clReadAhead*>(argument)->files;
    const bool withTags = NeedsTags;
    const std::uint32_t target = withTags ? stageTags : stageFormat;
    clZtDecoder decoder;
    for (clFileItem& item : files) {
        if (quit->IsSet())
            return;
        // An item with its tags also has its format; forms may be reading it.
        if (item.Stage() >= target)
            continue;
        Probe(item, decoder, withTags);
        item.SetStage(target);
    }
}
