// The native build has no code page: 8-bit text is UTF-8 there.
#include "foundation/XCodePage.h"
#include "foundation/XFormat.h"
#include "foundation/XUtf8.h"

int NarrowToWide(const char* source, wchar_t* out, int size) noexcept {
    return Utf8ToWide(source, out, size);
}

int WideToNarrow(const wchar_t* source, char* out, int size) noexcept {
    return WideToUtf8(source, out, size);
}

bool SystemFormat(XString&, const wchar_t*, va_list) {
    return false;
}
