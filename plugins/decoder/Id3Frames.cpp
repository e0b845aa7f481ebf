#include "plugins/decoder/Id3Frames.h"

#include <cstdint>
#include <cstring>
#include <utility>

namespace {

constexpr std::size_t headBytes = 10, nameBytes = 4, languageBytes = 3;
constexpr unsigned char utf16Marked = 1, utf16BigEndian = 2; // a text's first byte
constexpr std::uint32_t mostSynchsafeByte = 127;

constexpr struct {
    char older[4], name[5];
} names[] = {{"TST", "TSOT"}, {"TSA", "TSOA"}, {"TSP", "TSOP"},
             {"TS2", "TSO2"}, {"TSC", "TSOC"}, {"TCP", "TCMP"}};

bool IsLetter(unsigned char unit) noexcept {
    return (unit >= 'A' && unit <= 'Z') || (unit >= '0' && unit <= '9');
}

bool IsName(const unsigned char* at) noexcept {
    return IsLetter(at[0]) && IsLetter(at[1]) && IsLetter(at[2]) && (IsLetter(at[3]) || at[3] == ' ');
}

std::uint32_t Number(const unsigned char* at, unsigned bitsPerByte) noexcept {
    std::uint32_t number = 0;
    for (int i = 0; i < 4; ++i)
        number = (number << bitsPerByte) | at[i];
    return number;
}

// A tag of version 4 that iTunes wrote has sizes of version 3: what stands behind the frame tells.
std::size_t FrameBytes(const unsigned char* frame, std::size_t size, int version) noexcept {
    const std::uint32_t plain = Number(frame + nameBytes, 8);
    if (version < 4)
        return plain;
    const std::uint32_t synchsafe = Number(frame + nameBytes, 7);
    const auto leads = [=](std::size_t bytes) {
        return bytes <= size - headBytes && size - headBytes - bytes >= nameBytes &&
               IsName(frame + headBytes + bytes);
    };
    return synchsafe > mostSynchsafeByte && !leads(synchsafe) && leads(plain) ? plain : synchsafe;
}

void Rename(unsigned char* name) noexcept {
    for (const auto& row : names)
        if (std::memcmp(name, row.older, 3) == 0) {
            std::memcpy(name, row.name, nameBytes);
            return;
        }
    std::memcpy(name, "ZZZZ", nameBytes);
}

bool IsText(const unsigned char* name, std::size_t& start) noexcept {
    const bool hasLanguage =
        std::memcmp(name, "COMM", nameBytes) == 0 || std::memcmp(name, "USLT", nameBytes) == 0;
    start = 1 + (hasLanguage ? languageBytes : 0);
    return hasLanguage || name[0] == 'T';
}

// Most text has zeros in the upper bytes of its units; Chinese may have none, and is mostly
// of Windows then.
void MarkByteOrder(unsigned char* frame, std::size_t content) noexcept {
    std::size_t start = 0;
    unsigned char* text = frame + headBytes;
    const bool isPlain = frame[headBytes - 1] == 0; // neither packed nor encrypted nor grouped
    if (!isPlain || !IsText(frame, start) || content < start + 2 || text[0] != utf16Marked)
        return;
    std::size_t firstZeros = 0, secondZeros = 0;
    for (std::size_t at = start; at + 1 < content; at += 2) {
        if ((text[at] == 0xFF && text[at + 1] == 0xFE) || (text[at] == 0xFE && text[at + 1] == 0xFF))
            return;
        firstZeros += text[at] == 0;
        secondZeros += text[at + 1] == 0;
    }
    if (firstZeros <= secondZeros)
        for (std::size_t at = start; at + 1 < content; at += 2)
            std::swap(text[at], text[at + 1]);
    text[0] = utf16BigEndian;
}

} // namespace

void MendId3v2Frames(unsigned char* frames, std::size_t size, int version) noexcept {
    std::size_t at = 0, to = 0; // frames without content are closed over
    while (size - at > headBytes && IsName(frames + at)) {
        if (frames[at + 3] == ' ')
            Rename(frames + at);
        const std::size_t content = FrameBytes(frames + at, size - at, version);
        if (content > size - at - headBytes)
            break;
        MarkByteOrder(frames + at, content);
        const std::size_t whole = headBytes + content;
        if (content > 0) {
            std::memmove(frames + to, frames + at, whole);
            to += whole;
        }
        at += whole;
    }
    if (to == at)
        return;
    std::memmove(frames + to, frames + at, size - at);
    std::memset(frames + to + (size - at), 0, at - to);
}
