// Regional number text by rules of our own; only the settings come from the system.
#include "foundation/XNumberText.h"

#include <algorithm>

XLocaleNumbers& LocaleNumbers() {
    static XLocaleNumbers numbers;
    if (!numbers.loaded) {
        numbers.loaded = true; // first: loading itself comes through here
        LoadLocaleNumbers();
    }
    return numbers;
}

namespace {

// Absent and empty values leave the default.
template <int size>
void TakeSign(wchar_t (&field)[size], const XString& value) {
    if (value.IsEmpty())
        return;
    const int units = std::min(value.Count(), size - 1);
    std::copy(value.Text(), value.Text() + units, field);
    field[units] = 0;
}

void GroupDigits(XString& text, const XLocaleNumbers& numbers) {
    const int point = text.FindChar(L'.');
    int groupSize = 3;
    int digits = 0;
    for (int pos = point ? point - 1 : text.Count(); pos >= 1; --pos) {
        if (digits == groupSize && text.CharAt(pos) != L'-') {
            text.Insert(numbers.thousandSeparator, pos + 1);
            groupSize = numbers.indianGrouping ? 2 : groupSize;
            digits = 0;
        }
        ++digits;
    }
}

void SignNegative(XString& text, const XLocaleNumbers& numbers) {
    const XString sign(numbers.negativeSign);
    switch (numbers.negativeForm) {
    case 0:
        text = L"(" + text + L")";
        break;
    case 2:
        text = sign + L" " + text;
        break;
    case 3:
        text.Append(sign);
        break;
    case 4:
        text = text + L" " + sign;
        break;
    default:
        text.Insert(sign, 1);
    }
}

} // namespace

void FillLocaleNumbers(XLocaleNumbers& numbers, XString (*readSetting)(const wchar_t* name)) {
    numbers.leadingZero = readSetting(L"iLZero").CharAt(1) != L'0';
    const XString form = readSetting(L"iNegNumber");
    if (!form.IsEmpty())
        numbers.negativeForm = static_cast<int>(form.ToInt());
    numbers.indianGrouping = readSetting(L"sGrouping") == L"3;2;0";
    TakeSign(numbers.negativeSign, readSetting(L"sNegativeSign"));
    TakeSign(numbers.positiveSign, readSetting(L"sPositiveSign"));
    TakeSign(numbers.thousandSeparator, readSetting(L"sThousand"));
    TakeSign(numbers.decimalSeparator, readSetting(L"sDecimal"));
    TakeSign(numbers.timeSeparator, readSetting(L"sTime"));
}

void Localise(XString& text) {
    const XLocaleNumbers& numbers = LocaleNumbers();
    GroupDigits(text, numbers);
    // After grouping: with '.' between groups it is the first group's that becomes the decimal
    // separator, and the real decimal point stays.
    if (const int point = text.FindChar(L'.')) {
        text.Delete(point, point);
        text.Insert(numbers.decimalSeparator, point);
    }
    if (text.CharAt(1) == L'-') {
        text.Delete(1, 1);
        SignNegative(text, numbers);
    } else if (!text.IsEmpty()) {
        text.Insert(numbers.positiveSign, 1);
    }
}

XString FormatInt(std::int64_t value) {
    XString text = DecimalText(value);
    Localise(text);
    return text;
}

XString FormatReal(double value, int decimals, bool keepZeros) {
    XString text;
    text.FromReal(value, decimals, keepZeros);
    Localise(text);
    return text;
}

XString FormatSize(std::int64_t bytes, bool forceKilo) {
    struct Unit {
        double factor;
        const wchar_t* name;
    };
    constexpr Unit units[] = {{0x1p-40, L" TB"}, {0x1p-30, L" GB"}, {0x1p-20, L" MB"}};
    const auto value = static_cast<double>(bytes);
    for (const Unit& unit : units)
        if (!forceKilo && static_cast<std::int64_t>(value * unit.factor) != 0)
            return FormatReal(value * unit.factor, 2, false) + unit.name;
    const double kilo = value * 0x1p-10;
    if (!forceKilo && static_cast<std::int64_t>(kilo) == 0)
        return DecimalText(bytes) + (bytes == 1 ? L" byte" : L" bytes");
    // Up from a fraction of 0.01.
    return FormatInt(bytes == 0 ? 0 : static_cast<std::int64_t>(kilo + 0.99)) + L" KB";
}
