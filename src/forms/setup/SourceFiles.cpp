// The files that the set-up form is about: their count, and what comes to them while the form is open.
#include "forms/review/frmListNRename.h"
#include "forms/setup/frmConvertToOpt.h"
#include "host/DecoderCatalogue.h"
#include "host/DroppedFiles.h"
#include "host/HandOff.h"
#include "resources/ids.h"

#include <shlobj.h>

#include <cstring>
#include <vector>

namespace {

// The texts of a drop, read from its block: asked for a file, the system walks there from the first
// one, which takes minutes for 100,000 of them. Empty if they are not wide.
std::vector<wchar_t> WideTexts(HDROP drop) {
    std::vector<wchar_t> texts;
    const SIZE_T size = GlobalSize(drop);
    const auto* block = static_cast<const unsigned char*>(GlobalLock(drop));
    DROPFILES head{};
    if (block && size >= sizeof head)
        std::memcpy(&head, block, sizeof head);
    if (head.fWide && head.pFiles < size) {
        const SIZE_T units = (size - head.pFiles) / sizeof(wchar_t);
        texts.resize(units + 2); // ends with an empty text, come what may
        std::memcpy(texts.data(), block + head.pFiles, units * sizeof(wchar_t));
    }
    if (block)
        GlobalUnlock(drop);
    return texts;
}

void ReadDrop(HDROP drop, XStringArray& paths) {
    const std::vector<wchar_t> texts = WideTexts(drop);
    for (const wchar_t* path = texts.data(); path && *path; path += TextLength(path) + 1)
        paths.AddString(path);
    if (!texts.empty())
        return;
    const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        XString path;
        path.SetLength(static_cast<int>(DragQueryFileW(drop, i, nullptr, 0)));
        DragQueryFileW(drop, i, path.Buffer(), static_cast<UINT>(path.Count()) + 1);
        paths.AddString(path);
    }
}

} // namespace

void frmConvertToOpt::UpdateFileCount() {
    std::int64_t count = 0;
    for (const clFileItem& file : *Files)
        count += file.skipFlag == 0;
    SetWindowTextW(Control(ID_FILE_COUNT), FileCountText(count));
}

void frmConvertToOpt::TakeDroppedFiles(HDROP drop) {
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    XStringArray paths;
    ReadDrop(drop, paths);
    DragFinish(drop);
    if (!isReviewing) {
        XStringArray extensions;
        EnumerateDecoders(false, &extensions, nullptr);
        AddDroppedFiles(*Files, paths, extensions);
        UpdateFileCount();
    }
    SetCursor(LoadCursorW(nullptr, IDC_ARROW));
}

// Another start of the program may have given its files to this one.
void frmConvertToOpt::OnTimer(std::uint64_t, std::uint64_t) {
    if (isReviewing || !ReceiveHandOff(AddFilesEvent.Get(), *Files))
        return;
    UpdateFileCount();
    SetForegroundWindow(GetLastActivePopup(Hwnd));
}

void frmConvertToOpt::ListAndRename() {
    ToolTip.Hide();
    const clOutputChoice choice = OutputChoice();
    const XString folder = choice.folder || choice.dynamic ? OutputFolder() : XString();
    const XString naming = choice.dynamic ? NamingTemplate() : XString();
    isReviewing = true;
    int result = 0;
    {
        const frmListNRename list(result, Hwnd, *Files, EncoderNameOf(EncoderList.GetText(false)), folder,
                                  LiveEncoderSettings(), naming);
    }
    isReviewing = false;
    UpdateFileCount(); // files may have been left out there
}
