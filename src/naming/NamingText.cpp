// Allowance and helpers of the naming language.
#include "naming/NamingText.h"

#include "foundation/XUnits.h"

namespace {

// An honest template spends some hundred units; what this permits is done in well under a second.
constexpr std::int64_t baseAllowance = 1 << 20;
// The price of a replacement beside the units that it puts in. A template pays for all constructs
// that it holds itself.
constexpr std::int64_t stepPrice = 64;

} // namespace

clNamingText::clNamingText(const XString& namingTemplate)
    : text(namingTemplate), allowance(baseAllowance + stepPrice * namingTemplate.Count()) {}

bool clNamingText::Spend(std::int64_t units) {
    if (units + stepPrice > allowance) {
        allowance = 0;
        return false;
    }
    allowance -= units + stepPrice;
    return true;
}

bool clNamingText::Put(int first, int last, const XString& value) {
    if (!Spend(value.Count()))
        return false;
    text.Delete(first, last);
    text.Insert(value, first);
    return true;
}

// Reads at most up to the terminator, which matches nothing.
bool StandsAt(const wchar_t* at, const wchar_t* word) noexcept {
    while (*word && FoldUp(*at) == FoldUp(*word)) {
        ++at;
        ++word;
    }
    return *word == 0;
}

int FindBracketed(const XString& text, const wchar_t* word, int from) noexcept {
    int p = text.FindChar(L'[', from);
    while (p > 0 && !StandsAt(text.Text() + p - 1, word))
        p = text.FindChar(L'[', p + 1);
    return p;
}

XString FirstLine(const XString& text) {
    const int cr = text.FindChar(L'\r');
    return cr ? text.Left(cr - 1) : text;
}

XString SlashPart(const XString& text, bool second) {
    const int slash = text.FindChar(L'/');
    XString part;
    if (second)
        part = slash ? text.From(slash + 1) : XString();
    else
        part = slash ? text.Left(slash - 1) : text;
    part.TrimRight();
    part.TrimLeft();
    return part;
}

XString NextArgument(XString& args, bool rest) {
    const int comma = rest ? 0 : args.FindChar(L',');
    if (comma == 0) {
        XString all(args);
        args.Clear();
        return all;
    }
    XString argument = args.Left(comma - 1);
    args.Delete(1, comma);
    return argument;
}
