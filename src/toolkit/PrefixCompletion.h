// Completing what the user types in the edit of a combo box to the first choice that starts so.
#pragma once

#include "foundation/XString.h"

#include <cstdint>

// Whether `text` starts with `head`, A-Z ignoring case. Everything starts with the empty text.
[[nodiscard]] bool StartsWithNoCase(const wchar_t* text, const wchar_t* head) noexcept;

// The first of `count` choices, as `choiceAt(index)` gives their texts, that starts with `typed`.
// -1 if there is none, and for an empty `typed`.
template <class ChoiceAt>
[[nodiscard]] std::int64_t FindCompletion(const XString& typed, std::int64_t count, ChoiceAt choiceAt) {
    if (!typed.IsEmpty())
        for (std::int64_t i = 0; i < count; ++i)
            if (StartsWithNoCase(choiceAt(i), typed))
                return i;
    return -1;
}
