// Formats: id3.org; "APEv2 specification" (Hydrogenaudio); ISO 14496-12 for boxes.
#include "plugins/decoder/FileMarks.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

constexpr std::size_t id3v1Bytes = 128, apeFooterBytes = 32, boxHeader = 8;
constexpr int mostDepth = 8;

bool Is(const unsigned char* bytes, const char* mark) noexcept {
    return std::memcmp(bytes, mark, std::strlen(mark)) == 0;
}

XString ApeKind(const unsigned char* mark) {
    const unsigned version = mark[8] | mark[9] << 8; // 1000 or 2000
    return version >= 2000 ? L"APEv2" : L"APEv1";
}

std::size_t BigAt(const unsigned char* bytes) noexcept {
    return static_cast<std::size_t>(bytes[0]) << 24 | static_cast<std::size_t>(bytes[1]) << 16 |
           static_cast<std::size_t>(bytes[2]) << 8 | bytes[3];
}

bool IsOneOf(const unsigned char* id, std::initializer_list<const char*> names) noexcept {
    return std::any_of(names.begin(), names.end(), [id](const char* name) { return Is(id, name); });
}

bool WalkBoxes(const unsigned char* bytes, std::size_t size, int depth) noexcept {
    for (std::size_t at = 0; size - at >= boxHeader;) {
        const unsigned char* box = bytes + at;
        const std::size_t told = BigAt(box);
        if (told < boxHeader)
            return false;
        const std::size_t whole = std::min(told, size - at);
        if (IsOneOf(box + 4, {"drms", "enca"}))
            return true;
        constexpr std::size_t fullHeader = 8; // of stsd: version, flags, number of entries
        const bool isEntries = Is(box + 4, "stsd") && whole >= boxHeader + fullHeader;
        const std::size_t skipped = boxHeader + (isEntries ? fullHeader : 0);
        const bool isOuter = isEntries || IsOneOf(box + 4, {"moov", "trak", "mdia", "minf", "stbl"});
        if (isOuter && depth < mostDepth && WalkBoxes(box + skipped, whole - skipped, depth + 1))
            return true;
        at += whole;
    }
    return false;
}

} // namespace

void AddTagKind(XString& kinds, const XString& kind) {
    if (kind.IsEmpty() || (L" & " + kinds + L" & ").Find(L" & " + kind + L" & ") != 0)
        return;
    kinds = kinds.IsEmpty() ? kind : kinds + L" & " + kind;
}

std::size_t Id3v2Bytes(const unsigned char* start, std::size_t size) noexcept {
    if (size < 10 || !Is(start, "ID3") || start[3] == 0xFF)
        return 0;
    std::size_t content = 0;
    for (int i = 6; i < 10; ++i)
        content = content << 7 | (start[i] & 0x7F);
    const bool hasFooter = (start[5] & 0x10) != 0;
    return 10 + content + (hasFooter ? 10 : 0);
}

XString TagKindsAround(const unsigned char* start, std::size_t startSize, const unsigned char* end,
                       std::size_t endSize) {
    XString kinds;
    if (Id3v2Bytes(start, startSize) > 0)
        AddTagKind(kinds, L"ID3v2." + DecimalText(start[3]));
    if (startSize >= apeFooterBytes && Is(start, "APETAGEX"))
        AddTagKind(kinds, ApeKind(start));
    const unsigned char* last = endSize >= id3v1Bytes ? end + endSize - id3v1Bytes : nullptr;
    const bool hasId3v1 = last && Is(last, "TAG");
    const std::size_t before = endSize - (hasId3v1 ? id3v1Bytes : 0);
    if (before >= apeFooterBytes && Is(end + before - apeFooterBytes, "APETAGEX"))
        AddTagKind(kinds, ApeKind(end + before - apeFooterBytes));
    if (hasId3v1) // a track number is what 1.1 brought
        AddTagKind(kinds, last[125] == 0 && last[126] != 0 ? L"ID3v1.1" : L"ID3v1");
    return kinds;
}

bool HasProtectedAudio(const unsigned char* moov, std::size_t size) noexcept {
    return WalkBoxes(moov, size, 0);
}
