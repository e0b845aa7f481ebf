// The walk through dropped folders. Its stack lies on the heap: folders may be nested without end.
#include "host/DroppedFiles.h"

#include "foundation/XFindFile.h"
#include "foundation/XPath.h"
#include "host/DecoderCatalogue.h"

#include <memory>
#include <set>
#include <tuple>
#include <vector>

namespace {

// What tells a folder from all others, whatever path leads to it.
struct FolderIdentity {
    DWORD volume = 0;
    DWORD indexHigh = 0;
    DWORD indexLow = 0;
    [[nodiscard]] bool operator<(const FolderIdentity& other) const noexcept {
        return std::tie(volume, indexHigh, indexLow) <
               std::tie(other.volume, other.indexHigh, other.indexLow);
    }
};

bool ReadIdentity(const XString& folder, FolderIdentity& identity) {
    const XFileHandle handle(CreateFileW(LongPath(folder, longFolderLimit), FILE_READ_ATTRIBUTES,
                                         FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                         OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION information{};
    if (!handle.IsValid() || !GetFileInformationByHandle(handle.Get(), &information))
        return false;
    identity = {information.dwVolumeSerialNumber, information.nFileIndexHigh, information.nFileIndexLow};
    return true;
}

// The folders of one drop that were entered, so that a link to a folder above ends the walk.
class EnteredFolders {
public:
    // True the first time. A folder that hides its identity is entered unless it is a link.
    bool Enter(const XString& folder, bool isLink) {
        FolderIdentity identity;
        if (!ReadIdentity(folder, identity))
            return !isLink;
        return entered.insert(identity).second;
    }

private:
    std::set<FolderIdentity> entered;
};

class ExtensionTest {
public:
    explicit ExtensionTest(const XStringArray& extensions) : extensions(extensions) {}
    // Files of one folder tend to be of one kind: the last answer is kept.
    bool Passes(const XString& path) {
        const XString extension = SourceExtension(path);
        if (!hasLast || !last.EqualsNoCase(extension)) {
            last = extension;
            hasLast = true;
            passes = extensions.Contains(extension, true);
        }
        return passes;
    }

private:
    const XStringArray& extensions;
    XString last;
    bool hasLast = false;
    bool passes = false;
};

void WalkFolder(const XString& folder, ExtensionTest& test, XStringArray& found) {
    EnteredFolders entered;
    std::vector<std::unique_ptr<XFindFile>> open;
    const auto enter = [&](const XString& path, bool isLink) {
        if (entered.Enter(path, isLink))
            open.push_back(std::make_unique<XFindFile>(path, L"*.*"));
    };
    enter(folder, false);
    while (!open.empty()) {
        XFindFile& find = *open.back();
        if (!find.Next())
            open.pop_back();
        else if (find.IsFolder())
            enter(find.fullPath, (find.findData.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0);
        else if (test.Passes(find.fullPath))
            found.AddString(find.fullPath);
    }
}

} // namespace

std::int64_t AddDroppedFiles(clFileList& files, const XStringArray& dropped, const XStringArray& extensions) {
    ExtensionTest test(extensions);
    XStringArray found;
    for (const XString& path : dropped) {
        const DWORD attributes = GetFileAttributesW(LongPath(path, longFolderLimit));
        if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY))
            WalkFolder(path, test, found);
        else if (test.Passes(path))
            found.AddString(path);
    }
    return files.AppendAllUnique(found);
}
