#include "plugins/encoder/AiffHeader.h"

#include <bit>

namespace {

constexpr std::uint32_t aifcVersion1 = 0xA2805140;
constexpr char floatName[] = "\x15"
                             "32-bit floating point"; // with its length in front
constexpr std::uint32_t speakersByBits = 1 << 16;     // the mask's bits are those of wave files

// An 80-bit float with its leading one written out. `value` is not 0.
void PutExtended(ByteWriter& out, std::uint32_t value) {
    const int shift = std::countl_zero(std::uint64_t(value));
    out.Big(static_cast<std::uint64_t>(16383 + 63 - shift), 2);
    out.Big(std::uint64_t(value) << shift, 8);
}

ByteVector BuildCommon(const PcmLayout& layout, std::uint64_t frames) {
    ByteWriter common;
    common.Big(static_cast<std::uint64_t>(layout.channels), 2);
    common.Big(frames, 4);
    common.Big(static_cast<std::uint64_t>(layout.sampleBytes) * 8, 2);
    PutExtended(common, layout.frequency);
    if (layout.isFloat) {
        common.Id("fl32");
        common.Raw(floatName, sizeof floatName - 1);
    }
    return std::move(common.out);
}

} // namespace

ByteVector BuildAiffHeader(const PcmLayout& layout, std::uint64_t dataBytes, std::uint64_t fileBytes) {
    ByteWriter chunk;
    chunk.Id("FORM");
    chunk.Big(fileBytes > 8 ? fileBytes - 8 : 0, 4);
    chunk.Id(layout.isFloat ? "AIFC" : "AIFF");
    if (layout.isFloat) {
        chunk.Id("FVER");
        chunk.Big(4, 4);
        chunk.Big(aifcVersion1, 4);
    }
    chunk.Raw(BuildAiffChunk("COMM", BuildCommon(layout, dataBytes / layout.FrameBytes())));
    if (layout.channels > 2 && layout.channelMask != 0) { // the format's own orders fit no wave file
        chunk.Id("CHAN");
        chunk.Big(12, 4);
        chunk.Big(speakersByBits, 4);
        chunk.Big(layout.channelMask, 4);
        chunk.Big(0, 4); // no descriptions
    }
    chunk.Id("SSND");
    chunk.Big(dataBytes + 8, 4);
    chunk.Big(0, 8); // samples begin at once, in no blocks
    return std::move(chunk.out);
}

ByteVector BuildAiffChunk(const char* id, const ByteVector& bytes) {
    ByteWriter chunk;
    if (bytes.empty())
        return {};
    chunk.Id(id);
    chunk.Big(bytes.size(), 4);
    chunk.Raw(bytes);
    chunk.PadTo(2);
    return std::move(chunk.out);
}
