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
