// Building of RIFF chunks, little-endian.
#include "plugins/encoder/WaveHeader.h"

#include "plugins/common/TagText.h"
#include "plugins/encoder/InfoTags.h"

namespace {

constexpr std::uint32_t formatPcm = 1, formatFloat = 3, formatExtensible = 0xFFFE;
constexpr std::uint64_t mostRiffBytes = 0xFFFFFFFE; // readers take FFFFFFFF for "see ds64"
constexpr std::uint32_t sizes64Bytes = 28;
// Behind the format tag in KSDATAFORMAT_SUBTYPE_PCM and _IEEE_FLOAT.
constexpr unsigned char subtypeTail[14] = {0x00, 0x00, 0x00, 0x00, 0x10, 0x00, 0x80,
                                           0x00, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71};

} // namespace

ByteVector BuildWaveFormat(const PcmLayout& layout) {
    const std::uint32_t tag = layout.isFloat ? formatFloat : formatPcm;
    const bool extensible = layout.channels > 2 || layout.sampleBytes > 2;
    ByteWriter format;
    format.Little(extensible ? formatExtensible : tag, 2);
    format.Little(static_cast<std::uint64_t>(layout.channels), 2);
    format.Little(layout.frequency, 4);
    format.Little(std::uint64_t(layout.frequency) * layout.FrameBytes(), 4);
    format.Little(layout.FrameBytes(), 2);
    format.Little(static_cast<std::uint64_t>(layout.sampleBytes) * 8, 2);
    if (extensible) {
        format.Little(22, 2);
        format.Little(static_cast<std::uint64_t>(layout.sampleBytes) * 8, 2);
        format.Little(layout.channelMask, 4);
        format.Little(tag, 2);
        format.Raw(subtypeTail, sizeof subtypeTail);
    }
    return std::move(format.out);
}

ByteVector BuildWaveHeader(const PcmLayout& layout, std::uint64_t dataBytes, std::uint64_t fileBytes) {
    const bool is64 = fileBytes > mostRiffBytes + 8;
    const std::uint64_t frames = dataBytes / layout.FrameBytes();
    ByteWriter chunk;
    chunk.Id(is64 ? "RF64" : "RIFF");
    chunk.Little(is64 ? 0xFFFFFFFF : fileBytes - 8, 4);
    chunk.Id("WAVE");
    chunk.Id(is64 ? "ds64" : "JUNK");
    chunk.Little(sizes64Bytes, 4);
    chunk.Little(is64 ? fileBytes - 8 : 0, 8);
    chunk.Little(is64 ? dataBytes : 0, 8);
    chunk.Little(is64 ? frames : 0, 8);
    chunk.Little(0, 4); // no table of further sizes
    chunk.Raw(BuildChunk("fmt ", BuildWaveFormat(layout)));
    if (layout.isFloat) { // all but integer PCM has its number of frames here
        chunk.Id("fact");
        chunk.Little(4, 4);
        chunk.Little(frames > 0xFFFFFFFF ? 0xFFFFFFFF : frames, 4);
    }
    chunk.Id("data");
    chunk.Little(is64 ? 0xFFFFFFFF : dataBytes, 4);
    return std::move(chunk.out);
}

ByteVector BuildChunk(const char* id, const ByteVector& bytes) {
    ByteWriter chunk;
    if (bytes.empty())
        return {};
    chunk.Id(id);
    chunk.Little(bytes.size(), 4);
    chunk.Raw(bytes);
    chunk.PadTo(2);
    return std::move(chunk.out);
}

ByteVector BuildInfoChunk(const XTagList& tags) {
    LeftOutTags elsewhere; // the ID3 tag holds them all
    ByteWriter list;
    list.Id("INFO");
    for (const InfoTag& tag : ReadInfoTags(tags, elsewhere)) {
        const std::string text = ToUtf8(tag.text);
        list.Raw(BuildChunk(tag.id, ByteVector(text.c_str(), text.c_str() + text.size() + 1)));
    }
    return list.out.size() > 4 ? BuildChunk("LIST", list.out) : ByteVector();
}
