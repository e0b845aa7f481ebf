// Folder walks over FindFirstFileW.
#include "foundation/XFindFile.h"

#include "foundation/XPath.h"

XFindFile::XFindFile(const XString& folder, const wchar_t* pattern)
    : pattern(AddBackslash(folder) + pattern) {}

XFindFile::XFindFile(const XString& path) : pattern(StripBackslash(path)) {}

bool XFindFile::Next() {
    for (;;) {
        findData = {};
        if (!findHandle.IsValid()) {
            if (isStarted)
                return false;
            isStarted = true;
            findHandle.Reset(FindFirstFileW(LongPath(pattern, longFolderLimit), &findData));
            pattern = FolderOf(pattern);
            if (!findHandle.IsValid())
                return false;
        } else if (!FindNextFileW(findHandle.Get(), &findData)) {
            return false;
        }
        const XString name(findData.cFileName);
        const bool isSelfOrParent = name == L"." || name == L"..";
        if (isSelfOrParent || (foldersOnly && !IsFolder()))
            continue;
        fullPath = pattern + name;
        return true;
    }
}
