// List files from the disk.
#include "host/ListFile.h"

#include "foundation/XFile.h"

bool ReadListFile(const XString& path, XStringArray& lines) {
    lines.Clear();
    XBuffer content;
    if (!ReadWholeFile(path, content))
        return false;
    ParseListFile(content.data, content.size, lines);
    lines.Sort([](const XString& a, const XString& b) { return a.CompareNoCase(b) < 0; });
    return true;
}

bool AppendWhole(XFile& file, const XString& text) {
    constexpr DWORD unitBytes = sizeof(wchar_t);
    LARGE_INTEGER end{};
    if (!SetFilePointerEx(file.handle, {}, &end, FILE_END))
        return false;
    if (file.Write(text.Text(), static_cast<DWORD>(text.Count()) * unitBytes))
        return true;
    // Half a list would be worse than none, as the sender keeps its own.
    if (SetFilePointerEx(file.handle, end, nullptr, FILE_BEGIN))
        SetEndOfFile(file.handle);
    return false;
}
