// The working text of one evaluation, and the small text helpers of the naming language.
#pragma once

#include "foundation/XString.h"

// Every pass replaces pieces of this one text. Each replacement spends part of an allowance that the
// template's length sets; when it is spent, all passes stop and the rest stays as written. So evaluation
// ends soon whatever the template, the values and the extras are: a folder that is named like the
// function that returns it, or a delimiter that holds wrappers, would otherwise go on forever.
struct clNamingText {
    explicit clNamingText(const XString& namingTemplate);

    // Puts `value` in place of positions `first` to `last`. False if the allowance is spent: the text
    // is then unchanged.
    [[nodiscard]] bool Put(int first, int last, const XString& value);
    // Asks for `units` more; one refusal is final.
    [[nodiscard]] bool Spend(std::int64_t units);

    XString text;
    std::int64_t allowance; // units
};

// True if the terminated `word` stands at `at`, in any case.
[[nodiscard]] bool StandsAt(const wchar_t* at, const wchar_t* word) noexcept;
// Position of a word that begins with a bracket, in any case; 0 if none. Brackets are rare, and this is
// asked for every element of the language.
[[nodiscard]] int FindBracketed(const XString& text, const wchar_t* word, int from) noexcept;

// Up to the first CR, which parts the values of a tag.
[[nodiscard]] XString FirstLine(const XString& text);
// "5/15": what stands before the first slash, or behind it (empty without one); blanks trimmed.
[[nodiscard]] XString SlashPart(const XString& text, bool second);
// Takes the text before the first comma, and the comma, out of `args`; with `rest` all of it.
[[nodiscard]] XString NextArgument(XString& args, bool rest);

// What stands for a comma and an opening bracket of a value while the text is being worked on, so that
// no value reads as language.
inline constexpr wchar_t commaWord[] = L"<comma_>";
inline constexpr wchar_t bracketWord[] = L"<brackets_>";
// A comma that a template puts into an argument.
inline constexpr wchar_t templateCommaWord[] = L"_COMMA_";
// Closes a wrapper or a function.
inline constexpr wchar_t closingToken[] = L"[]";
inline constexpr int closingLength = 2;
