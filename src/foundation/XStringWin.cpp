// The system's code page and wide formatter.
#include "foundation/XCodePage.h"
#include "foundation/XFormat.h"

#include <windows.h>

#include <cstdio>
#include <memory>

int NarrowToWide(const char* source, wchar_t* out, int size) noexcept {
    return MultiByteToWideChar(CP_ACP, 0, source, -1, out, size);
}

int WideToNarrow(const wchar_t* source, char* out, int size) noexcept {
    return WideCharToMultiByte(CP_ACP, 0, source, -1, out, size, nullptr, nullptr);
}

bool SystemFormat(XString& out, const wchar_t* pattern, va_list arguments) {
    for (int size = 1000; size < 0x6400000; size *= 5) {
        const auto buffer = std::make_unique_for_overwrite<wchar_t[]>(static_cast<std::size_t>(size));
        const int limit = size - 1;
        va_list copy;
        va_copy(copy, arguments);
        const int units = _vsnwprintf(buffer.get(), static_cast<std::size_t>(limit), pattern, copy);
        va_end(copy);
        if (units < 0 || units > limit)
            continue;
        buffer[units] = 0; // a text that fills the limit has no terminator yet
        out.Assign(buffer.get(), units + 1);
        return true;
    }
    return false;
}
