#include "worker/TargetFile.h"

#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"
#include "worker/SystemText.h"
#include "worker/TargetName.h"

namespace {

constexpr ULONGLONG renamePatienceMs = 3000; // virus scanners hold new files for a moment
constexpr DWORD renamePauseMs = 100;
constexpr int foldersTries = 5;
constexpr int highestAttempt = 1000;

// A folder that is open like this can't be removed.
XFileHandle HoldFolder(const XString& folder) {
    return XFileHandle(CreateFileW(LongPath(folder, longFolderLimit), FILE_LIST_DIRECTORY,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                   FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

} // namespace

void TargetFile::Error(const XString& what) {
    const bool isFull = !folder.IsEmpty() && IsDiskFull(folder);
    reporter.Error(XString(L"Error writing '") + path + L"': " +
                   (isFull ? XString(L"the disk is full (") + what + L")" : what));
}

bool TargetFile::MakeFolders() {
    XStringArray missing; // from the deepest up
    XString level = StripBackslash(folder);
    while (level.Count() >= RootEnd(AddBackslash(level)) && !PathExists(level)) {
        missing.AddString(level);
        XString name;
        PopLastFolder(name, level);
        level = StripBackslash(level);
        if (name.IsEmpty())
            break;
    }
    for (std::int64_t i = missing.Count() - 1; i >= 0; --i) {
        const XString longName = LongPath(missing[i], longFolderLimit);
        if (CreateDirectoryW(longName, nullptr)) {
            madeFolders.AddString(longName);
            continue;
        }
        const DWORD error = GetLastError();
        if (error != ERROR_ALREADY_EXISTS) {
            Error(XString(L"the folder '") + missing[i] + L"' can't be made: " + SystemErrorText(error));
            return false;
        }
    }
    return true;
}

bool TargetFile::Prepare() {
    if (const wchar_t* fault = TargetPathFault(path)) {
        Error(fault);
        return false;
    }
    bool isFolder = false;
    if (PathExists(path, &isFolder) && isFolder) {
        Error(L"there is a folder of that name");
        return false;
    }
    folder = path.FindChar(L'\\') == 0 ? XString() : FolderOf(path);
    // Another worker that cleans up may remove a folder between its making and its holding.
    for (int i = 0; i < foldersTries && !folder.IsEmpty() && !folderHold.IsValid(); ++i) {
        if (!MakeFolders())
            return false;
        folderHold = HoldFolder(folder);
        if (!folderHold.IsValid() && PathExists(folder))
            break; // some network drives can't be held
    }
    XString candidate;
    int attempt = 0;
    do {
        candidate = TemporaryTargetPath(path, GetCurrentProcessId(), attempt++);
    } while (PathExists(candidate) && attempt < highestAttempt);
    temporary = LongPath(candidate, longFolderLimit);
    return true;
}

bool TargetFile::TryRename(DWORD& error) {
    const XString target = LongPath(path, longFolderLimit);
    if (MoveFileExW(temporary, target, MOVEFILE_REPLACE_EXISTING)) {
        error = ERROR_SUCCESS;
        return true;
    }
    error = GetLastError();
    const DWORD attributes = GetFileAttributesW(target);
    if (error != ERROR_ACCESS_DENIED || attributes == INVALID_FILE_ATTRIBUTES ||
        (attributes & FILE_ATTRIBUTE_READONLY) == 0)
        return false;
    // To overwrite it was decided before the conversion, so a read-only target gives way.
    SetFileAttributesW(target, attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
    if (MoveFileExW(temporary, target, MOVEFILE_REPLACE_EXISTING))
        return true;
    error = GetLastError();
    SetFileAttributesW(target, attributes);
    return false;
}

clStep TargetFile::Commit(Lifeline& lifeline) {
    const ULONGLONG start = GetTickCount64();
    DWORD error = ERROR_SUCCESS;
    while (!TryRename(error)) {
        if (!lifeline.Pulse())
            return stepCancelled;
        const bool isHeld = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED ||
                            error == ERROR_LOCK_VIOLATION || error == ERROR_USER_MAPPED_FILE;
        if (!isHeld || GetTickCount64() - start > renamePatienceMs) {
            Error(XString(isHeld ? L"the file that is there can't be replaced: "
                                 : L"the complete file can't be given its name: ") +
                  SystemErrorText(error));
            return stepFailed;
        }
        Sleep(renamePauseMs);
    }
    temporary.Clear();
    madeFolders.Clear();
    folderHold.Reset();
    return stepGood;
}

void TargetFile::Discard() noexcept {
    folderHold.Reset();
    if (!temporary.IsEmpty() && !DeleteFileW(temporary)) {
        // Somebody may have marked it read-only while it was written.
        SetFileAttributesW(temporary, FILE_ATTRIBUTE_NORMAL);
        DeleteFileW(temporary);
    }
    temporary.Clear();
    for (std::int64_t i = madeFolders.Count() - 1; i >= 0; --i)
        RemoveDirectoryW(madeFolders[i]); // fails, as it should, if others put something in
    madeFolders.Clear();
}
