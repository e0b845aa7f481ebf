// The one text type: UTF-16 code units with an inline buffer. 8-bit text exists only at the edges.
#pragma once

#include <cstdint>
#include <iosfwd>

static_assert(sizeof(wchar_t) == 2, "texts are UTF-16 units in every build");

// As a position: the last character (CharAt) or the end (InsertChar).
inline constexpr int XSTR_END = -12345;

// Positions are 1-based; 0 is "not found". The stored length counts the terminator, so an empty
// text has stored length 1. Case folding is that of A-Z alone. Bad positions are absorbed: reads
// answer 0 or an empty text, edits do nothing. Not thread-safe.
class XString {
public:
    XString() noexcept;
    XString(const wchar_t* text);       // null gives the empty text
    explicit XString(const char* text); // active code page; null gives the empty text
    explicit XString(std::int64_t value);
    explicit XString(std::int32_t value);
    XString(const XString& other); // copies userValue; not the narrow copy
    XString(XString&& other) noexcept;
    ~XString();

    // Assignments leave userValue of the receiver as it is.
    XString& operator=(const XString& other);
    XString& operator=(XString&& other) noexcept;
    XString& operator=(const wchar_t* source);

    // `count` includes the terminator, 0 measures. Null makes the text empty and keeps its storage.
    void Assign(const wchar_t* source, int count = 0);
    void Assign(const char* source);

    [[nodiscard]] const wchar_t* Text() const noexcept { return text; }
    // For filling in place, up to Capacity() units; follow with SetLength or FitLength.
    [[nodiscard]] wchar_t* Buffer() noexcept { return text; }
    [[nodiscard]] int StoredLength() const noexcept { return length; } // with the terminator, >= 1
    [[nodiscard]] int Count() const noexcept { return length - 1; }    // visible characters
    [[nodiscard]] bool IsEmpty() const noexcept { return length == 1; }
    [[nodiscard]] int Capacity() const noexcept { return capacity; } // units, with the terminator
    operator const wchar_t*() const noexcept { return text; }

    void Append(const wchar_t* other);
    void Append(const XString& other);
    void Extend(const wchar_t* other); // the accumulating append: a third of slack
    void Extend(const XString& other);
    void AppendExact(const wchar_t* other);
    XString& operator+=(const wchar_t* other) {
        Append(other);
        return *this;
    }
    XString& operator+=(const XString& other) {
        Append(other);
        return *this;
    }

    [[nodiscard]] wchar_t CharAt(int pos) const noexcept;
    [[nodiscard]] int Find(const wchar_t* needle, int from = 1, bool ignoreCase = false) const;
    [[nodiscard]] int FindChar(wchar_t ch, int from = 1) const noexcept;
    [[nodiscard]] int ReverseFindChar(wchar_t ch) const noexcept;
    [[nodiscard]] bool Equals(const wchar_t* other) const noexcept;       // null equals nothing
    [[nodiscard]] int CompareNoCase(const wchar_t* other) const noexcept; // -1, 0, 1; null gives 1
    [[nodiscard]] bool EqualsNoCase(const wchar_t* other) const noexcept { return CompareNoCase(other) == 0; }
    [[nodiscard]] bool StartsWith(const wchar_t* head) const noexcept; // case-sensitive

    [[nodiscard]] XString Mid(int from, int to = 0x7fffffff) const; // both inclusive
    [[nodiscard]] XString Left(int n) const;
    [[nodiscard]] XString Right(int n) const;
    [[nodiscard]] XString From(int pos) const;
    [[nodiscard]] XString Upper() const;
    [[nodiscard]] XString Lower() const;

    // A `to` past the end also takes characters from the end of the whole text: users of the
    // naming function that deletes know it so.
    void Delete(int from, int to);
    void Insert(const wchar_t* other, int pos);
    void InsertChar(wchar_t ch, int pos = XSTR_END);
    void SetCharAt(int pos, wchar_t ch) noexcept; // no effect out of range
    void SetLength(int n);                        // cuts, or pads with blanks, to n characters
    void FitLength();                             // after filling Buffer(): measures up to the terminator
    void TrimLeft();                              // U+0020 only, both
    void TrimRight();
    void Replace(const wchar_t* from, const wchar_t* to, bool ignoreCase = false);
    void Clear() noexcept; // empty, keeps its storage

    void FromInt(std::int64_t value);
    void FromUnsigned(std::uint64_t value);
    void ToHex(std::uint64_t value);      // 16 upper-case digits
    void ToHexShort(std::uint64_t value); // without leading zeros
    // Rounds by adding 0.49 in the last place, so 0.005 with 2 decimals stays 0.00.
    void FromReal(double value, int decimals, bool keepZeros);
    [[nodiscard]] std::int64_t ToInt() const noexcept; // leading blanks, sign, digits; else 0
    // %s takes wide text. In portable code only what the built-in formatter of XFormat.h knows.
    void Format(const wchar_t* pattern, ...);

    // The text in the active code page; owned by this object, valid until the next call.
    [[nodiscard]] const char* ToNarrow();

    std::uint64_t userValue = 0; // free value that travels with copies

private:
    // Slack is chosen by each operation: nothing doubles. Both in units.
    void Reserve(std::int64_t needed, std::int64_t extra);
    void AppendUnits(const wchar_t* other, int units, bool extend);
    [[nodiscard]] int MapEnd(int pos) const noexcept { return pos == XSTR_END ? length - 1 : pos; }
    void Release() noexcept;
    [[nodiscard]] bool IsInline() const noexcept { return text == inlineText; }

    static constexpr int inlineUnits = 128;
    wchar_t* text;
    int length = 1;
    wchar_t inlineText[inlineUnits];
    char* narrowText = nullptr;
    unsigned narrowSize = 0;
    int capacity = inlineUnits;
};

[[nodiscard]] XString operator+(const XString& left, const wchar_t* right);
[[nodiscard]] XString operator+(const XString& left, const XString& right);
[[nodiscard]] XString operator+(const wchar_t* left, const XString& right);
[[nodiscard]] bool operator==(const XString& left, const XString& right) noexcept;
[[nodiscard]] bool operator==(const XString& left, const wchar_t* right) noexcept;

// Shows a text as UTF-8 in test output.
void PrintTo(const XString& text, std::ostream* out);

[[nodiscard]] XString DecimalText(std::int64_t value);
[[nodiscard]] XString UnsignedText(std::uint64_t value);
// Units before the terminator; 0 for null.
[[nodiscard]] int TextLength(const wchar_t* text) noexcept;
