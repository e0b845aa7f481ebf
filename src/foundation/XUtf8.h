// UTF-8 and UTF-16. What is malformed becomes U+FFFD.
#pragma once

// Both return the length of the terminated result with its terminator. With `size` 0 they only
// measure; a result that does not fit answers 0. `source` is terminated.
int Utf8ToWide(const char* source, wchar_t* out, int size) noexcept;
int WideToUtf8(const wchar_t* source, char* out, int size) noexcept;
