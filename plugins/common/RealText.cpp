#include "plugins/common/RealText.h"

#include <cmath>

namespace {
constexpr int mostDigits = 9, mostDecimals = 3;
}

bool ReadReal(const XString& text, double& value) noexcept {
    const wchar_t sign = text.CharAt(1);
    int i = sign == L'-' || sign == L'+' ? 2 : 1;
    std::int64_t number = 0, scale = 1;
    int digits = 0;
    bool isFraction = false;
    for (; i <= text.Count(); ++i) {
        const wchar_t c = text.CharAt(i);
        if (!isFraction && digits > 0 && (c == L'.' || c == L',')) {
            isFraction = true;
            continue;
        }
        if (c < L'0' || c > L'9' || ++digits > mostDigits)
            return false;
        number = number * 10 + (c - L'0');
        scale *= isFraction ? 10 : 1;
    }
    if (digits == 0 || scale > std::pow(10, mostDecimals) || (isFraction && scale == 1))
        return false;
    value = static_cast<double>(sign == L'-' ? -number : number) / static_cast<double>(scale);
    return true;
}

XString RealText(double value) {
    XString text;
    text.FromReal(value, mostDecimals, false);
    return text;
}
