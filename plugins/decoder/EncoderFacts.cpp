#include "plugins/decoder/EncoderFacts.h"

#include <cstring>

namespace {

constexpr std::size_t infoTagBytes = 36;
constexpr int highBitRate = 96000, mediumBitRate = 48000; // of MPEG layer 3, per channel

std::uint32_t BigAt(const unsigned char* bytes, int count) noexcept {
    std::uint32_t value = 0;
    for (int i = 0; i < count; ++i)
        value = value << 8 | bytes[i];
    return value;
}

std::uint32_t LittleAt(const unsigned char* bytes, int count) noexcept {
    std::uint32_t value = 0;
    for (int i = count; i-- > 0;)
        value = value << 8 | bytes[i];
    return value;
}

bool Is(const unsigned char* bytes, const char* mark) noexcept {
    return std::memcmp(bytes, mark, 4) == 0;
}

// kbit/s of a layer 3 frame; 0 for none.
int FrameBitRate(const unsigned char* header) noexcept {
    static constexpr int mpeg1[] = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0};
    static constexpr int mpeg2[] = {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, 0};
    return ((header[1] & 8) ? mpeg1 : mpeg2)[header[2] >> 4];
}

// Where Xing's header stands in the layer 3 frame at these bytes; 0 if they are none.
std::size_t XingOffset(const unsigned char* frame) noexcept {
    const bool isLayer3 = frame[0] == 0xFF && (frame[1] & 0xE6) == 0xE2 && (frame[1] & 0x18) != 8 &&
                          FrameBitRate(frame) > 0 && (frame[2] & 0x0C) != 0x0C;
    if (!isLayer3)
        return 0;
    const bool isMpeg1 = (frame[1] & 8) != 0, isMono = frame[3] >> 6 == 3;
    return 4 + (isMpeg1 ? (isMono ? 17u : 32u) : (isMono ? 9u : 17u));
}

// "LAME3.100" with a blank; empty if it is no text.
XString EncoderName(const unsigned char* text) {
    XString name;
    for (int i = 0; i < 9 && text[i] != 0; ++i) {
        if (text[i] < 0x20 || text[i] > 0x7E)
            return XString();
        const wchar_t unit[2] = {text[i], 0};
        name.Append(unit);
    }
    while (name.CharAt(name.Count()) == L' ')
        name = name.Left(name.Count() - 1);
    if (name.StartsWith(L"LAME") && name.Count() > 4 && name.CharAt(5) != L' ')
        name = L"LAME " + name.From(5);
    return name;
}

// `quality` is Xing's, of which LAME makes 100 minus ten times its -V minus its -q; -1: it has none.
XString LameSettings(const unsigned char* info, int quality, int frameBitRate) {
    const int method = info[9] & 15;
    const int told = info[20]; // 255: so many or more
    switch (method) {
    case 1:
    case 8:
        return L"-b" + DecimalText(told > 0 && told < 255 ? told : frameBitRate);
    case 2:
    case 9: {
        const int preset = static_cast<int>(BigAt(info + 26, 2) & 0x7FF);
        return L"--abr " + DecimalText(preset >= 8 && preset <= 320 ? preset : told);
    }
    case 3:
    case 4:
    case 5:
        return quality > 0 && quality <= 100 ? L"-V" + DecimalText((100 - quality) / 10) : XString(L"VBR");
    default:
        return XString();
    }
}

EncoderFacts ReadXingHeader(const unsigned char* at, std::size_t left, int frameBitRate) {
    EncoderFacts facts;
    const std::uint32_t flags = BigAt(at + 4, 4);
    const std::size_t before = 8 + ((flags & 1) ? 4u : 0) + ((flags & 2) ? 4u : 0) + ((flags & 4) ? 100u : 0);
    const std::size_t behind = before + ((flags & 8) ? 4u : 0);
    if (left < behind + infoTagBytes)
        return facts;
    const unsigned char* info = at + behind;
    const int quality = (flags & 8) ? static_cast<int>(BigAt(at + before, 4) & 0xFFFF) : -1;
    facts.encoder = EncoderName(info);
    if (facts.encoder.IsEmpty())
        return facts;
    facts.settings = LameSettings(info, quality, frameBitRate);
    facts.tellsGaps = BigAt(info + 21, 3) != 0;
    return facts;
}

} // namespace

EncoderFacts ReadMp3Facts(const unsigned char* bytes, std::size_t size) {
    for (std::size_t i = 0; i + 4 <= size; ++i) {
        const std::size_t offset = XingOffset(bytes + i);
        if (offset == 0 || size - i < offset + 8)
            continue;
        const unsigned char* at = bytes + i + offset;
        if (Is(at, "Xing") || Is(at, "Info"))
            return ReadXingHeader(at, size - i - offset, FrameBitRate(bytes + i));
    }
    return {};
}

EncoderFacts ReadWavPackFacts(const unsigned char* bytes, std::size_t size) {
    constexpr std::size_t headerBytes = 32;
    constexpr unsigned configId = 0x25, idMask = 0x3F, isLarge = 0x80;
    EncoderFacts facts;
    if (size < headerBytes || !Is(bytes, "wvpk"))
        return facts;
    facts.encoder = L"WavPack";
    const bool isHybrid = (bytes[24] & 8) != 0;
    std::size_t at = headerBytes;
    while (size - at >= 4) {
        const unsigned id = bytes[at];
        const std::size_t words = (id & isLarge) ? LittleAt(bytes + at + 1, 3) : bytes[at + 1];
        const std::size_t content = at + ((id & isLarge) ? 4 : 2);
        if (words * 2 > size - content)
            break;
        if ((id & idMask) == configId && words * 2 >= 3) {
            const std::uint32_t flags = LittleAt(bytes + content, 3) << 8;
            facts.settings = (flags & 0x1000)  ? L"Very high"
                             : (flags & 0x800) ? L"High"
                             : (flags & 0x200) ? L"Fast"
                                               : L"Normal";
            if (flags & 0x2000000)
                facts.settings += L", extra";
            break;
        }
        at = content + words * 2;
    }
    if (isHybrid)
        facts.settings += facts.settings.IsEmpty() ? L"Hybrid" : L", hybrid";
    return facts;
}

EncoderFacts MonkeysAudioFacts(unsigned version, unsigned level) {
    EncoderFacts facts;
    XString number;
    number.FromReal(version / 1000.0, 2, true);
    facts.encoder = L"Monkey's Audio " + number;
    static constexpr const wchar_t* levels[] = {L"Fast", L"Normal", L"High", L"Extra high", L"Insane"};
    if (level >= 1000 && level <= 5000)
        facts.settings = levels[level / 1000 - 1];
    return facts;
}

const wchar_t* LossyQuality(std::int64_t bitsPerSecond, int channels, int weight) noexcept {
    const std::int64_t perChannel = channels > 0 ? bitsPerSecond / channels * weight / 100 : 0;
    return perChannel >= highBitRate     ? L"High (Lossy)"
           : perChannel >= mediumBitRate ? L"Medium (Lossy)"
                                         : L"Low (Lossy)";
}
