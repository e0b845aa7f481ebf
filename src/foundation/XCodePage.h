// Conversion between UTF-16 and the active code page; natively that page is UTF-8.
#pragma once

// Both return the units or bytes of the terminated result with its terminator, 0 on failure.
// With `size` 0 they only measure. `source` is terminated.
int NarrowToWide(const char* source, wchar_t* out, int size) noexcept;
int WideToNarrow(const wchar_t* source, char* out, int size) noexcept;
