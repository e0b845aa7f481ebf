// Number text of XString, without regional treatment, and Format.
#include "foundation/XString.h"

#include "foundation/XFormat.h"

#include <cmath>

namespace {

constexpr wchar_t hexDigits[] = L"0123456789ABCDEF";

// Truncates; what does not fit becomes the nearest limit, and what is no number becomes 0.
std::uint64_t TruncateToUnsigned(double value) noexcept {
    if (!(value > 0))
        return 0;
    return value >= 18446744073709551616.0 ? UINT64_MAX : static_cast<std::uint64_t>(value);
}

} // namespace

void XString::FromUnsigned(std::uint64_t value) {
    wchar_t digits[20];
    int first = 20;
    do {
        digits[--first] = static_cast<wchar_t>(L'0' + value % 10);
        value /= 10;
    } while (value);
    Assign(digits + first, 20 - first + 1);
}

void XString::FromInt(std::int64_t value) {
    // Negated as unsigned, where the lowest value has a counterpart.
    FromUnsigned(value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value));
    if (value < 0)
        InsertChar(L'-', 1);
}

void XString::ToHex(std::uint64_t value) {
    wchar_t digits[16];
    for (int i = 15; i >= 0; --i) {
        digits[i] = hexDigits[value & 15];
        value >>= 4;
    }
    Assign(digits, 17);
}

void XString::ToHexShort(std::uint64_t value) {
    ToHex(value);
    int zeros = 0;
    while (zeros < Count() - 1 && text[zeros] == L'0')
        ++zeros;
    if (zeros > 0)
        Delete(1, zeros);
}

void XString::FromReal(double value, int decimals, bool keepZeros) {
    const bool isNegative = value < 0;
    value = std::fabs(value);
    if (decimals < 0)
        decimals = 0;
    const double scale = std::pow(10.0, decimals);
    const bool isBelowOne = value < 1.0;
    if (isBelowOne)
        value += 1.0; // keeps the zeros behind the point; its 1 is taken back below
    FromUnsigned(TruncateToUnsigned(value * scale + 0.49));
    InsertChar(L'.', length - decimals);
    if (isBelowOne)
        --text[0];
    if (isNegative)
        InsertChar(L'-', 1);
    if (keepZeros)
        return; // with no decimals the point stays too
    while (length > 1 && text[length - 2] == L'0')
        SetLength(length - 2);
    if (length > 1 && text[length - 2] == L'.')
        SetLength(length - 2);
}

std::int64_t XString::ToInt() const noexcept {
    const wchar_t* at = text;
    while (*at == L' ')
        ++at;
    const bool isNegative = *at == L'-';
    if (*at == L'-' || *at == L'+')
        ++at;
    std::uint64_t value = 0; // unsigned: overflow wraps
    for (; *at >= L'0' && *at <= L'9'; ++at)
        value = value * 10 + static_cast<std::uint64_t>(*at - L'0');
    return static_cast<std::int64_t>(isNegative ? 0 - value : value);
}

void XString::Format(const wchar_t* pattern, ...) {
    XString result; // arguments may point into this text
    va_list arguments;
    va_start(arguments, pattern);
    if (!pattern || !SystemFormat(result, pattern, arguments))
        BuiltInFormat(result, pattern, arguments);
    va_end(arguments);
    Assign(result.text, result.length);
}

XString DecimalText(std::int64_t value) {
    XString text;
    text.FromInt(value);
    return text;
}

XString UnsignedText(std::uint64_t value) {
    XString text;
    text.FromUnsigned(value);
    return text;
}
