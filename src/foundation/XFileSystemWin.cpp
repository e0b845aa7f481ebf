// Existence, creating and deleting.
#include "foundation/XFileSystem.h"

#include "foundation/XArray.h"
#include "foundation/XFindFile.h"
#include "foundation/XPath.h"

bool PathExists(const XString& path, bool* isFolder) {
    if (isFolder)
        *isFolder = false;
    if (path.IsEmpty())
        return false;
    XFindFile find(path);
    if (find.Next()) {
        if (isFolder)
            *isFolder = find.IsFolder();
        return true;
    }
    if (GetDriveTypeW(AddBackslash(path)) == DRIVE_NO_ROOT_DIR)
        return false;
    if (isFolder)
        *isFolder = true;
    return true;
}

bool IsFile(const XString& path) {
    bool isFolder = false;
    return PathExists(path, &isFolder) && !isFolder;
}

bool MakeFolders(const XString& path) {
    XString reached = LongPath(path, longFolderLimit);
    if (reached.IsEmpty())
        return false;
    if (RootEnd(reached) == 1) // nothing to make; true only for what is there already
        return PathExists(reached);
    XStringArray components; // the last folder first
    XString component;
    for (PopLastFolder(component, reached); !component.IsEmpty(); PopLastFolder(component, reached))
        components.AddString(component);
    for (std::int64_t i = components.Count() - 1; i >= 0; --i) {
        reached.Append(components[i]);
        const BOOL isMade = CreateDirectoryW(reached, nullptr);
        const DWORD error = GetLastError();
        if (!isMade && error != ERROR_ALREADY_EXISTS)
            return false;
        reached.Append(L"\\");
    }
    return true;
}

bool DeleteOneFile(const XString& path) {
    const XString name = LongPath(path, longFolderLimit);
    if (DeleteFileW(name))
        return true;
    const DWORD error = GetLastError();
    return error == ERROR_ACCESS_DENIED && ClearReadOnly(path) && DeleteFileW(name);
}

bool ClearReadOnly(const XString& path) {
    const XString name = LongPath(path, longFolderLimit);
    const DWORD attributes = GetFileAttributesW(name);
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return false;
    return SetFileAttributesW(name, attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
}

namespace {

bool DeleteEntries(const XString& folder, const wchar_t* pattern, bool recursive) {
    bool isAllGone = true;
    XFindFile find(folder, pattern);
    while (find.Next()) {
        if (!find.IsFolder())
            isAllGone = DeleteOneFile(find.fullPath) && isAllGone;
        else if (!recursive)
            continue;
        else if (find.findData.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT)
            // A link goes; what it leads to is not ours.
            isAllGone = RemoveDirectoryW(LongPath(find.fullPath, longFolderLimit)) && isAllGone;
        else
            isAllGone = DeleteTree(find.fullPath, pattern, true) && isAllGone;
    }
    return isAllGone;
}

} // namespace

bool DeleteTree(const XString& folder, const wchar_t* pattern, bool recursive) {
    // A drive's root is never meant.
    if (folder.Count() < 3 || folder.Count() < RootEnd(folder))
        return false;
    if (!DeleteEntries(folder, pattern, recursive))
        return false;
    RemoveDirectoryW(LongPath(StripBackslash(folder), longFolderLimit));
    return true;
}
