// Comparing the start of texts.
#include "toolkit/PrefixCompletion.h"

namespace {
wchar_t Folded(wchar_t ch) noexcept {
    return ch >= L'a' && ch <= L'z' ? static_cast<wchar_t>(ch - L'a' + L'A') : ch;
}
} // namespace

bool StartsWithNoCase(const wchar_t* text, const wchar_t* head) noexcept {
    if (!text || !head)
        return false;
    for (; *head; ++text, ++head)
        if (Folded(*text) != Folded(*head)) // also at the end of `text`
            return false;
    return true;
}
