// The built-in formatter: for results that are too long for the system's, and for the native build.
#include "foundation/XFormat.h"

#include <algorithm>
#include <climits>

namespace {

struct Directive {
    int width = 0;
    int precision = -1; // -1: none given
};

void AddDigit(int& number, wchar_t digit) {
    number = number > INT_MAX / 10 - 1 ? INT_MAX / 10 : number * 10 + (digit - L'0');
}

// Zeros stand between the sign and the digits.
void ExtendNumber(XString& out, XString number, int width) {
    const int missing = width - number.Count();
    if (missing > 0) {
        XString zeros;
        zeros.SetLength(missing);
        std::fill(zeros.Buffer(), zeros.Buffer() + missing, L'0');
        number.Insert(zeros, number.CharAt(1) == L'-' ? 2 : 1);
    }
    out.Extend(number);
}

XString HexText(unsigned value, bool isUpper) {
    XString text;
    text.ToHexShort(value);
    return isUpper ? text : text.Lower();
}

XString RealText(double value, int precision) {
    XString text;
    text.FromReal(value, precision < 0 ? 5 : precision, precision != 0);
    return text;
}

void ExtendText(XString& out, const wchar_t* text, int precision) {
    if (text)
        out.Extend(precision < 0 ? XString(text) : XString(text).Left(precision));
}

} // namespace

void BuiltInFormat(XString& out, const wchar_t* pattern, va_list arguments) {
    out.Clear();
    while (pattern && *pattern) {
        if (*pattern != L'%') {
            const wchar_t* end = pattern;
            while (*end && *end != L'%')
                ++end;
            XString plain;
            plain.Assign(pattern, static_cast<int>(end - pattern) + 1);
            out.Extend(plain);
            pattern = end;
            continue;
        }
        Directive directive;
        for (bool isOpen = true; isOpen && *++pattern;) {
            isOpen = false;
            switch (*pattern) {
            case L'%':
                out.Extend(L"%");
                break;
            case L's':
                ExtendText(out, va_arg(arguments, const wchar_t*), directive.precision);
                break;
            case L'd':
            case L'i':
                ExtendNumber(out, DecimalText(va_arg(arguments, int)), directive.width);
                break;
            case L'u':
                ExtendNumber(out, UnsignedText(va_arg(arguments, unsigned)), directive.width);
                break;
            case L'x':
            case L'X':
                ExtendNumber(out, HexText(va_arg(arguments, unsigned), *pattern == L'X'), directive.width);
                break;
            case L'f':
                ExtendNumber(out, RealText(va_arg(arguments, double), directive.precision), directive.width);
                break;
            case L'.':
                if (directive.precision >= 0) {
                    out.Clear();
                    return;
                }
                directive.precision = 0;
                isOpen = true;
                break;
            default:
                if (*pattern >= L'0' && *pattern <= L'9')
                    AddDigit(directive.precision >= 0 ? directive.precision : directive.width, *pattern);
                isOpen = true;
            }
        }
        if (*pattern)
            ++pattern;
    }
}
