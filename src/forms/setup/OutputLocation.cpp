// Where the output goes and how it is named: the controls of the set-up form and the list of folders.
#include "forms/setup/dlgNaming.h"
#include "forms/setup/frmConvertToOpt.h"
#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"
#include "host/Settings.h"
#include "naming/NamedFolders.h"
#include "resources/ids.h"

#include <shlobj.h>

namespace {

XString HistoryName(int index) {
    return Setting::lastFolder + DecimalText(index);
}

} // namespace

clOutputChoice frmConvertToOpt::OutputChoice() const {
    const auto isChecked = [this](int id) { return IsDlgButtonChecked(Hwnd, id) == BST_CHECKED; };
    return {isChecked(ID_OUTPUT_ORIGINAL), isChecked(ID_OUTPUT_FOLDER), isChecked(ID_OUTPUT_DYNAMIC)};
}

void frmConvertToOpt::ShowOutputChoice(const clOutputChoice& choice) {
    CheckDlgButton(Hwnd, ID_OUTPUT_ORIGINAL, choice.original);
    CheckDlgButton(Hwnd, ID_OUTPUT_FOLDER, choice.folder);
    CheckDlgButton(Hwnd, ID_OUTPUT_DYNAMIC, choice.dynamic);
}

void frmConvertToOpt::UpdateOutputControls() {
    const clOutputLimits limits{DisableSameFolder != 0, DisableConvertToFolder != 0};
    const clOutputChoice choice = AllowedChoice(OutputChoice(), limits);
    ShowOutputChoice(choice);
    const clOutputEnabled enabled = EnabledControls(choice, limits);
    const auto enable = [this](int id, bool on) { EnableWindow(Control(id), on); };
    enable(ID_OUTPUT_ORIGINAL, enabled.original);
    enable(ID_OUTPUT_FOLDER, enabled.folder);
    enable(ID_OUTPUT_DYNAMIC, enabled.dynamic);
    enable(ID_FOLDER_LIST, enabled.folderList);
    enable(ID_FOLDER_BROWSE, enabled.folderList);
    enable(ID_NAMING, enabled.naming);
    enable(ID_NAMING_SET, enabled.naming);
    InvalidateRect(Hwnd, nullptr, TRUE);
}

XString frmConvertToOpt::OutputFolder() const {
    return ResolveFolderName(FolderList.GetText(false));
}

XString frmConvertToOpt::NamingTemplate() const {
    XString naming;
    naming.SetLength(longestNaming);
    GetWindowTextW(Control(ID_NAMING), naming.Buffer(), longestNaming + 1);
    naming.FitLength();
    return naming;
}

// Each goes to the top, so that the newest ends there.
void frmConvertToOpt::FillFolders() {
    for (int index = historyLength - 1; index >= 0; --index) {
        const XString folder = RegReadString(HistoryName(index));
        if (IsRestoredFolder(folder))
            AddFolderToList(folder, false);
    }
    if (!FolderList.Rows.IsEmpty())
        return;
    AddFolderToList(GetSpecialFolder(CSIDL_COMMON_VIDEO), true);
    AddFolderToList(GetSpecialFolder(CSIDL_MYVIDEO), true);
    AddFolderToList(L"C:\\Converted Music\\", true);
    AddFolderToList(GetSpecialFolder(CSIDL_COMMON_MUSIC), false);
    AddFolderToList(GetSpecialFolder(CSIDL_MYMUSIC), false);
}

XString frmConvertToOpt::AddFolderToList(const XString& path, bool onlyIfExists) {
    if (path.IsEmpty())
        return XString();
    if (onlyIfExists && !PathExists(path))
        return path;
    XString shown = FolderDisplayName(path, false);
    for (std::int64_t i = FolderList.Rows.Count() - 1; i >= 0; --i)
        if (FolderList.Rows[i].Text == shown)
            FolderList.RemoveRow(static_cast<int>(i));
    XIcon icon(ShellIcon(path, shellFromDisk));
    if (!icon.IsValid()) // not there yet
        icon.Reset(ShellIcon(GetSpecialFolder(folderWindows), shellFromDisk));
    FolderList.AddRow(shown, icon.Get(), 0);
    return shown;
}

void frmConvertToOpt::SaveFolders() {
    XStringArray listed;
    for (const clDropRow& row : FolderList.Rows)
        listed.AddString(ResolveFolderName(row.Text));
    XStringArray history;
    FolderHistory(history, OutputFolder(), listed);
    for (std::int64_t i = 0; i < history.Count(); ++i)
        RegWriteString(history[i], HistoryName(static_cast<int>(i)));
}

void frmConvertToOpt::Browse() {
    const XString folder = seams.chooseFolder(Hwnd, OutputFolder());
    if (!folder.IsEmpty())
        FolderList.SelectByText(AddFolderToList(AddBackslash(folder), false));
}

void frmConvertToOpt::EditNaming() {
    XString naming = NamingTemplate();
    { const dlgNaming dialog(Hwnd, naming); }
    SetWindowTextW(Control(ID_NAMING), naming);
}
