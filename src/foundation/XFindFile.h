// Walks the entries of a folder that match a pattern; "." and ".." are passed over.
#pragma once

#include "foundation/XHandles.h"
#include "foundation/XString.h"

class XFindFile {
public:
    XFindFile(const XString& folder, const wchar_t* pattern); // joined with '\' if needed
    explicit XFindFile(const XString& path);                  // trailing backslashes stripped
    [[nodiscard]] bool Next();
    [[nodiscard]] bool IsFolder() const noexcept {
        return (findData.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    }

    XString fullPath; // of the current entry
    WIN32_FIND_DATAW findData{};
    XFindHandle findHandle;
    XString pattern; // after the first Next: the folder part only
    bool foldersOnly = false;

private:
    bool isStarted = false;
};
