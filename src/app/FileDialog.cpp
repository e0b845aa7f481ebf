#include "app/FileDialog.h"

#include "app/PickedFiles.h"
#include "engine/ProgressText.h"
#include "foundation/XPath.h"
#include "host/DecoderCatalogue.h"
#include "host/Settings.h"

#include <cderr.h>
#include <commdlg.h>

#include <algorithm>

namespace {

// False: the user cancelled, or the dialog can't be shown.
bool Ask(OPENFILENAMEW& dialog, std::vector<wchar_t>& picked) {
    for (;;) {
        dialog.lpstrFile = picked.data();
        dialog.nMaxFile = static_cast<DWORD>(picked.size());
        if (GetOpenFileNameW(&dialog))
            return true;
        if (CommDlgExtendedError() != FNERR_BUFFERTOOSMALL)
            return false;
        // The dialog tells the needed size in 16 bits only, which is a lower bound.
        const std::size_t needed = picked[0];
        picked.assign(std::max(picked.size() * 4, needed + 1), 0);
    }
}

} // namespace

void ShowFileDialog(clFileList& files, unsigned capacity) {
    DecoderFilterList filters;
    EnumerateDecoders(true, nullptr, &filters);
    const std::vector<wchar_t> filter = DialogFilterText(filters);
    const XString title = XString(programCaption) + L": Select Audio File(s)";
    const XString folder = RegReadString(Setting::lastAccessedFolder);

    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.lpstrFilter = filter.data();
    dialog.nFilterIndex = 1;
    dialog.lpstrInitialDir = folder.IsEmpty() ? nullptr : folder.Text();
    dialog.lpstrTitle = title;
    dialog.Flags =
        OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_ALLOWMULTISELECT | OFN_HIDEREADONLY;
    std::vector<wchar_t> picked(capacity);
    if (!Ask(dialog, picked))
        return;
    XStringArray paths;
    ReadPickedFiles(picked.data(), paths);
    if (paths.IsEmpty())
        return;
    RegWriteString(FolderOf(paths[0]), Setting::lastAccessedFolder);
    for (const XString& path : paths)
        files.Append()->sourcePath = path;
}
