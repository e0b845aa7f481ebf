// Building of RIFF chunks, little-endian.
#include "plugins/encoder/WaveHeader.h"

#include "plugins/common/TagText.h"

#include <cstring>

namespace {

constexpr std::uint32_t formatPcm = 1, formatFloat = 3, formatExtensible = 0xFFFE;
constexpr std::uint64_t mostRiffBytes = 0xFFFFFFFE; // readers take FFFFFFFF for "see ds64"
constexpr std::uint32_t sizes64Bytes = 28;
// Behind the format tag in KSDATAFORMAT_SUBTYPE_PCM and _IEEE_FLOAT.
constexpr unsigned char subtypeTail[14] = {0x00, 0x00, 0x00, 0x00, 0x10, 0x00, 0x80,
                                           0x00, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71};

class ChunkWriter {
public:
    void Id(const char* id) { Raw(id, 4); }
    void Raw(const void* bytes, std::size_t count) {
        const unsigned char* from = static_cast<const unsigned char*>(bytes);
        out.insert(out.end(), from, from + count);
    }
    void Number(std::uint64_t value, int bytes) {
        for (int i = 0; i < bytes; ++i)
            out.push_back(static_cast<unsigned char>(value >> (8 * i)));
    }

    ByteVector out;
};

bool IsExtensible(const WaveLayout& layout) noexcept {
    return layout.channels > 2 || layout.sampleBytes > 2;
}

void PutFormat(ChunkWriter& chunk, const WaveLayout& layout) {
    const std::uint32_t tag = layout.isFloat ? formatFloat : formatPcm;
    const bool extensible = IsExtensible(layout);
    chunk.Id("fmt ");
    chunk.Number(extensible ? 40 : 16, 4);
    chunk.Number(extensible ? formatExtensible : tag, 2);
    chunk.Number(static_cast<std::uint64_t>(layout.channels), 2);
    chunk.Number(layout.frequency, 4);
    chunk.Number(std::uint64_t(layout.frequency) * layout.FrameBytes(), 4);
    chunk.Number(layout.FrameBytes(), 2);
    chunk.Number(static_cast<std::uint64_t>(layout.sampleBytes) * 8, 2);
    if (!extensible)
        return;
    chunk.Number(22, 2);
    chunk.Number(static_cast<std::uint64_t>(layout.sampleBytes) * 8, 2);
    chunk.Number(layout.channelMask, 4);
    chunk.Number(tag, 2);
    chunk.Raw(subtypeTail, sizeof subtypeTail);
}

} // namespace

ByteVector BuildWaveHeader(const WaveLayout& layout, std::uint64_t dataBytes, std::uint64_t fileBytes) {
    const bool is64 = fileBytes - 8 > mostRiffBytes;
    const std::uint64_t frames = dataBytes / layout.FrameBytes();
    ChunkWriter chunk;
    chunk.Id(is64 ? "RF64" : "RIFF");
    chunk.Number(is64 ? 0xFFFFFFFF : fileBytes - 8, 4);
    chunk.Id("WAVE");
    chunk.Id(is64 ? "ds64" : "JUNK");
    chunk.Number(sizes64Bytes, 4);
    chunk.Number(is64 ? fileBytes - 8 : 0, 8);
    chunk.Number(is64 ? dataBytes : 0, 8);
    chunk.Number(is64 ? frames : 0, 8);
    chunk.Number(0, 4); // no table of further sizes
    PutFormat(chunk, layout);
    if (layout.isFloat) { // all but integer PCM has its number of frames here
        chunk.Id("fact");
        chunk.Number(4, 4);
        chunk.Number(frames > 0xFFFFFFFF ? 0xFFFFFFFF : frames, 4);
    }
    chunk.Id("data");
    chunk.Number(is64 ? 0xFFFFFFFF : dataBytes, 4);
    return std::move(chunk.out);
}

ByteVector BuildChunk(const char* id, const ByteVector& bytes) {
    ChunkWriter chunk;
    if (bytes.empty())
        return {};
    chunk.Id(id);
    chunk.Number(bytes.size(), 4);
    chunk.Raw(bytes.data(), bytes.size());
    if (bytes.size() % 2 != 0)
        chunk.Number(0, 1);
    return std::move(chunk.out);
}

ByteVector BuildInfoChunk(const XTagList& tags) {
    ByteVector list;
    for (std::int64_t i = 0; i < tags.Count(); ++i) {
        const XTagItem& item = tags[i];
        const TagName* name = FindTagName(item.key);
        if (!name || !name->info)
            continue;
        XStringArray values;
        SplitValues(item, values);
        XString all;
        for (const XString& value : values) {
            if (!all.IsEmpty())
                all.Extend(L"; ");
            all.Extend(value);
        }
        if (all.IsEmpty())
            continue;
        const std::string text = ToUtf8(all);
        const ByteVector entry =
            BuildChunk(name->info, ByteVector(text.c_str(), text.c_str() + text.size() + 1));
        list.insert(list.end(), entry.begin(), entry.end());
    }
    if (list.empty())
        return {};
    list.insert(list.begin(), {'I', 'N', 'F', 'O'});
    return BuildChunk("LIST", list);
}
