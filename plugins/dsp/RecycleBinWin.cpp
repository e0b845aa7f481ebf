#include "plugins/dsp/RecycleBin.h"

#include "foundation/XFileSystem.h"

#include <shellapi.h>

namespace {

bool HasRecycleBin(const XString& path) {
    const XString root = path.Left(3); // "C:\"; shares and removable drives have none
    return root.CharAt(2) == L':' && GetDriveTypeW(root) == DRIVE_FIXED;
}

} // namespace

bool MoveToRecycleBin(const XString& path, XString& reason) {
    if (!HasRecycleBin(path)) {
        reason = L"its drive has no recycle bin";
        return false;
    }
    if (path.Count() >= MAX_PATH) { // the shell takes no longer ones
        reason = L"its path is too long for the recycle bin";
        return false;
    }
    XString list = path;
    list.InsertChar(0); // the list ends with a second terminator
    SHFILEOPSTRUCTW operation{};
    operation.wFunc = FO_DELETE;
    operation.pFrom = list;
    // Without questions: nobody may be there to answer when a batch ends.
    operation.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_SILENT | FOF_NOERRORUI;
    const int code = SHFileOperationW(&operation);
    if (code == 0 && !operation.fAnyOperationsAborted && !PathExists(path))
        return true;
    reason = L"the recycle bin did not take it";
    if (code != 0)
        reason += L": error " + DecimalText(code);
    return false;
}
