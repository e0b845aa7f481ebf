#include "plugins/encoder/Wave64Header.h"

#include "plugins/encoder/InfoTags.h"
#include "plugins/encoder/WaveHeader.h"

namespace {

// What follows the four letters in the names of chunks.
constexpr unsigned char riffTail[12] = {0x2E, 0x91, 0xCF, 0x11, 0xA5, 0xD6,
                                        0x28, 0xDB, 0x04, 0xC1, 0x00, 0x00};
constexpr unsigned char partTail[12] = {0xF3, 0xAC, 0xD3, 0x11, 0x8C, 0xD1,
                                        0x00, 0xC0, 0x4F, 0x8E, 0xDB, 0x8A};
constexpr unsigned char summaryList[16] = {0xBC, 0x94, 0x5F, 0x92, 0x5A, 0x52, 0xD2, 0x11,
                                           0x86, 0xDC, 0x00, 0xC0, 0x4F, 0x8E, 0xDB, 0x8A};

void PutPart(ByteWriter& out, const char* id) {
    out.Id(id);
    out.Raw(partTail, sizeof partTail);
}

} // namespace

ByteVector BuildWave64Header(const PcmLayout& layout, std::uint64_t dataBytes, std::uint64_t fileBytes) {
    const ByteVector format = BuildWaveFormat(layout);
    ByteWriter chunk;
    chunk.Id("riff");
    chunk.Raw(riffTail, sizeof riffTail);
    chunk.Little(fileBytes, 8);
    PutPart(chunk, "wave");
    PutPart(chunk, "fmt ");
    chunk.Little(wave64ChunkHead + format.size(), 8);
    chunk.Raw(format);
    chunk.PadTo(8);
    PutPart(chunk, "fact");
    chunk.Little(wave64ChunkHead + 8, 8);
    chunk.Little(dataBytes / layout.FrameBytes(), 8);
    PutPart(chunk, "data");
    chunk.Little(wave64ChunkHead + dataBytes, 8);
    return std::move(chunk.out);
}

ByteVector BuildWave64Summary(const XTagList& tags, LeftOutTags& leftOut) {
    const std::vector<InfoTag> entries = ReadInfoTags(tags, leftOut);
    if (entries.empty())
        return {};
    ByteWriter list;
    list.Little(entries.size(), 4);
    for (const InfoTag& entry : entries) {
        const int units = entry.text.Count() + 1; // with the terminator
        list.Id(entry.id);
        list.Little(static_cast<std::uint64_t>(units) * 2, 4);
        for (int i = 0; i < units; ++i)
            list.Little(entry.text.Text()[i], 2);
    }
    ByteWriter chunk;
    chunk.Raw(summaryList, sizeof summaryList);
    chunk.Little(wave64ChunkHead + list.out.size(), 8);
    chunk.Raw(list.out);
    chunk.PadTo(8);
    return std::move(chunk.out);
}
