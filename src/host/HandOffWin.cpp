// Both sides open the waiting file alone, and touch the event only while they hold it: so no signal
// is lost, and no path that one side writes while the other takes the list away.
#include "host/HandOff.h"

#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"
#include "host/ListFile.h"

#include <shlobj.h>

namespace {

constexpr wchar_t handOffFile[] = L"Zephtone\\AddFilesToExistingTM.bin";
constexpr DWORD maxBytes = 0x40000000; // far above any list; one read takes no more

bool ReadAll(XFile& file, XBuffer& out) {
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file.handle, &size) || size.QuadPart > maxBytes ||
        !out.SetSize(static_cast<std::uint64_t>(size.QuadPart), false, false))
        return false;
    bool failed = false;
    const auto wanted = static_cast<DWORD>(size.QuadPart);
    return wanted == 0 || (file.Read(out.data, wanted, &failed) == wanted && !failed);
}

// Through the handle, so that nobody can append between the closing and the deleting.
void DeleteAndClose(XFile& file) {
    FILE_DISPOSITION_INFO disposition{};
    disposition.DeleteFile = TRUE;
    const BOOL isGoing =
        SetFileInformationByHandle(file.handle, FileDispositionInfo, &disposition, sizeof disposition);
    file.Close();
    if (!isGoing)
        DeleteOneFile(file.path); // read-only, then: no sender can have written to it
}

} // namespace

XString HandOffPath() {
    return GetSpecialFolder(CSIDL_APPDATA, L"C:\\Zephtone\\") + handOffFile;
}

XKernelHandle MakeHandOffEvent() {
    return XKernelHandle(CreateEventW(nullptr, TRUE, FALSE, handOffEventName));
}

bool TryHandOff(const XString& listPath) {
    // Opened and not created: an event of the sender's own would look like a form to other senders.
    const XKernelHandle event(OpenEventW(EVENT_MODIFY_STATE, FALSE, handOffEventName));
    if (!event.IsValid())
        return false;
    XStringArray lines;
    ReadListFile(listPath, lines);
    XString text;
    for (const XString& line : lines) {
        text.Extend(line);
        text.Extend(L"\r\n");
    }
    XFile file(HandOffPath());
    MakeFolders(FolderOf(file.path));
    if (!file.Open(GENERIC_WRITE, OPEN_ALWAYS, false, false) || !AppendWhole(file, text))
        return false;
    SetEvent(event.Get());
    AllowSetForegroundWindow(ASFW_ANY); // the form comes forward on its own, without the user's input
    return true;
}

bool ReceiveHandOff(HANDLE event, clFileList& files) {
    if (!event || WaitForSingleObject(event, 0) != WAIT_OBJECT_0)
        return false;
    XFile file(HandOffPath());
    if (!file.Open(GENERIC_READ | DELETE, OPEN_EXISTING, false, false))
        return false;
    XBuffer content;
    XStringArray lines;
    // Without a single line the event stays signalled and the file stays: the next sender fills it.
    if (!ReadAll(file, content) || !ParseListFile(content.data, content.size, lines))
        return false;
    files.AppendAllUnique(lines);
    ResetEvent(event);
    DeleteAndClose(file);
    return true;
}
