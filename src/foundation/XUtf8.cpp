// Strict UTF-8 coding (RFC 3629): no overlong forms, no surrogates, nothing above U+10FFFF.
#include "foundation/XUtf8.h"

#include <cstdint>

namespace {

constexpr std::uint32_t replacement = 0xFFFD;

// Counts what it is given and stores what fits.
template <class Unit>
struct Sink {
    Unit* out;
    int size;
    int used = 0;
    void Put(std::uint32_t unit) noexcept {
        if (used < size)
            out[used] = static_cast<Unit>(unit);
        ++used;
    }
    int Finish() noexcept {
        Put(0);
        return size > 0 && used > size ? 0 : used;
    }
};

// The code point at `at`, which moves behind it; a bad lead or a cut sequence moves by one byte.
std::uint32_t NextOfUtf8(const unsigned char*& at) noexcept {
    const unsigned char lead = *at++;
    if (lead < 0x80)
        return lead;
    const int more = lead >= 0xF0 && lead < 0xF5   ? 3
                     : lead >= 0xE0 && lead < 0xF0 ? 2
                     : lead >= 0xC2 && lead < 0xE0 ? 1
                                                   : 0;
    if (more == 0)
        return replacement;
    std::uint32_t point = lead & (0x3Fu >> more);
    for (int i = 0; i < more; ++i) {
        if ((at[i] & 0xC0) != 0x80)
            return replacement;
        point = point << 6 | (at[i] & 0x3Fu);
    }
    const bool isOverlong = (more == 2 && point < 0x800) || (more == 3 && point < 0x10000);
    if (isOverlong || point > 0x10FFFF || (point >= 0xD800 && point < 0xE000))
        return replacement;
    at += more;
    return point;
}

std::uint32_t NextOfWide(const wchar_t*& at) noexcept {
    const std::uint32_t first = static_cast<std::uint16_t>(*at++);
    if (first < 0xD800 || first > 0xDFFF)
        return first;
    const std::uint32_t second = static_cast<std::uint16_t>(*at);
    if (first > 0xDBFF || second < 0xDC00 || second > 0xDFFF)
        return replacement;
    ++at;
    return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
}

} // namespace

int Utf8ToWide(const char* source, wchar_t* out, int size) noexcept {
    Sink<wchar_t> sink{out, size};
    for (const auto* at = reinterpret_cast<const unsigned char*>(source); *at;) {
        const std::uint32_t point = NextOfUtf8(at);
        if (point >= 0x10000) {
            sink.Put(0xD800 + ((point - 0x10000) >> 10));
            sink.Put(0xDC00 + ((point - 0x10000) & 0x3FF));
        } else {
            sink.Put(point);
        }
    }
    return sink.Finish();
}

int WideToUtf8(const wchar_t* source, char* out, int size) noexcept {
    Sink<char> sink{out, size};
    while (*source) {
        const std::uint32_t point = NextOfWide(source);
        if (point < 0x80) {
            sink.Put(point);
            continue;
        }
        if (point >= 0x10000) {
            sink.Put(0xF0 | point >> 18);
            sink.Put(0x80 | (point >> 12 & 0x3F));
        } else if (point >= 0x800) {
            sink.Put(0xE0 | point >> 12);
        }
        if (point >= 0x800)
            sink.Put(0x80 | (point >> 6 & 0x3F));
        else
            sink.Put(0xC0 | point >> 6);
        sink.Put(0x80 | (point & 0x3F));
    }
    return sink.Finish();
}
