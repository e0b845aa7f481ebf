#include "config/frmConfig.h"

#include "forms/FormCaption.h"
#include "forms/review/ListTexts.h"
#include "forms/setup/ShellActions.h"
#include "foundation/XDurationText.h"
#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"
#include "naming/NamedFolders.h"
#include "resources/ids.h"
#include "send/Registration.h"

#include <shlobj.h>

namespace {

constexpr int longestPath = 32000; // units
constexpr std::int64_t sampleMs = ((60 + 2) * 60 + 3) * 1000 + 45;
// In the order of clFolderScope.
constexpr const wchar_t* scopeTexts[] = {L"encoders that have none yet", L"all encoders and profiles"};

class clWaitCursor {
public:
    clWaitCursor() : earlier(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
    ~clWaitCursor() { SetCursor(earlier); }
    clWaitCursor(const clWaitCursor&) = delete;
    clWaitCursor& operator=(const clWaitCursor&) = delete;

private:
    HCURSOR earlier;
};

void AddText(HWND combo, const wchar_t* text) {
    SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
}

bool SetRegistered(bool wanted) {
    const clExplorerPlaces places = UsualExplorerPlaces();
    return wanted ? RegisterEntries(places) : UnregisterEntries(places);
}

} // namespace

frmConfig::frmConfig(clConfigSeams seams) : Seams(std::move(seams)) {
    if (!Seams.chooseFolder)
        Seams.chooseFolder = ChooseFolderFor;
    if (!Seams.areEntriesRegistered)
        Seams.areEntriesRegistered = [] { return AreEntriesRegistered(UsualExplorerPlaces()); };
    if (!Seams.registerEntries)
        Seams.registerEntries = SetRegistered;
    ShowModal(ID_DIALOG_CONFIG, nullptr);
}

frmConfig::~frmConfig() {
    Destroy();
}

void frmConfig::OnInit() {
    SetIcons(LoadProgramIcon(ID_ICON_PROGRAM, GetSystemMetrics(SM_CXICON)),
             LoadProgramIcon(ID_ICON_PROGRAM, GetSystemMetrics(SM_CXSMICON)));
    SetWindowTextW(Hwnd, configCaption);
    FillLists();
    ShowSettings();
    UpdateOutputControls();
    Handled = 0; // the system chooses the first control
}

void frmConfig::FillLists() {
    for (const wchar_t* text : scopeTexts)
        AddText(Control(ID_CONFIG_OUTPUT_SCOPE), text);
    for (std::uint32_t format = leastTimeFormat; format <= mostTimeFormat; ++format)
        AddText(Control(ID_CONFIG_TIME), FormatDuration(sampleMs, LengthModeOf(format)));
}

void frmConfig::ShowSettings() {
    const clConfig config = ReadConfig();
    WereRegistered = Seams.areEntriesRegistered();
    for (const int edit : {ID_CONFIG_TEMP, ID_CONFIG_OUTPUT})
        SendMessageW(Control(edit), EM_LIMITTEXT, longestPath, 0);
    SetWindowTextW(Control(ID_CONFIG_TEMP), config.tempFolder);
    SetWindowTextW(Control(ID_CONFIG_OUTPUT), FolderDisplayName(GetSpecialFolder(CSIDL_MYMUSIC), false));
    SendMessageW(Control(ID_CONFIG_OUTPUT_SCOPE), CB_SETCURSEL, scopeWithoutFolder, 0);
    SendMessageW(Control(ID_CONFIG_TIME), CB_SETCURSEL, config.timeFormat - leastTimeFormat, 0);
    CheckDlgButton(Hwnd, ID_CONFIG_PROFILES, config.allowProfiles);
    CheckDlgButton(Hwnd, ID_CONFIG_EXPLORER, WereRegistered);
}

void frmConfig::OnClose() {
    EndDialog(Hwnd, 0);
}

void frmConfig::OnCancel() {
    EndDialog(Hwnd, 0);
}

LRESULT frmConfig::PreMessage(HWND, UINT message, WPARAM wParam, LPARAM, std::uint32_t&) {
    if (message != WM_COMMAND || HIWORD(wParam) != BN_CLICKED)
        return 0;
    switch (LOWORD(wParam)) {
    case ID_CONFIG_OUTPUT_SET:
        UpdateOutputControls();
        break;
    case ID_CONFIG_TEMP_BROWSE:
        Browse(ID_CONFIG_TEMP, L"Zephtone: Select the Folder for Temporary Files");
        break;
    case ID_CONFIG_OUTPUT_BROWSE:
        Browse(ID_CONFIG_OUTPUT, L"Zephtone: Select Output Folder");
        break;
    }
    return 0;
}

void frmConfig::UpdateOutputControls() {
    const bool isSet = IsChecked(ID_CONFIG_OUTPUT_SET);
    for (const int id :
         {ID_CONFIG_OUTPUT_SCOPE, ID_CONFIG_OUTPUT_LABEL, ID_CONFIG_OUTPUT, ID_CONFIG_OUTPUT_BROWSE})
        EnableWindow(Control(id), isSet);
}

void frmConfig::Browse(int edit, const wchar_t* title) {
    const XString folder = Seams.chooseFolder(title, Hwnd, FolderIn(edit));
    if (!folder.IsEmpty())
        SetWindowTextW(Control(edit), folder);
}

XString frmConfig::FolderIn(int edit) const {
    XString text;
    text.SetLength(longestPath);
    GetWindowTextW(Control(edit), text.Buffer(), longestPath + 1);
    text.FitLength();
    text.TrimLeft();
    text.TrimRight();
    return ResolveFolderName(text);
}

bool frmConfig::IsChecked(int id) const {
    return IsDlgButtonChecked(Hwnd, id) == BST_CHECKED;
}

void frmConfig::Refuse(int edit, const XString& why) {
    MessageBoxW(Hwnd, why, L"Zephtone", MB_OK | MB_ICONEXCLAMATION);
    // So does Tab: a dialog has a focus of its own, and selects what is in the field.
    SendMessageW(Hwnd, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(edit)), TRUE);
}

// The folder need not be there: a conversion makes what it needs.
bool frmConfig::RefuseOutputFolder() {
    if (!IsChecked(ID_CONFIG_OUTPUT_SET) || IsWholePath(FolderIn(ID_CONFIG_OUTPUT)))
        return false;
    Refuse(ID_CONFIG_OUTPUT, L"The output folder has to begin with a drive, such as 'C:\\Converted Music', "
                             L"or with a folder such as 'Music'.");
    return true;
}

bool frmConfig::RefuseTempFolder() {
    const XString folder = FolderIn(ID_CONFIG_TEMP);
    if (folder.IsEmpty() || (IsWholePath(folder) && CanWriteInto(folder)))
        return false;
    Refuse(ID_CONFIG_TEMP, L"No file can be written into the folder '" + folder + L"'.");
    return true;
}

void frmConfig::OnOK() {
    if (RefuseOutputFolder() || RefuseTempFolder())
        return;
    Write();
    EndDialog(Hwnd, 1);
}

void frmConfig::Write() {
    const clWaitCursor wait; // plug-ins are loaded
    clConfig config;
    config.tempFolder = FolderIn(ID_CONFIG_TEMP);
    config.allowProfiles = IsChecked(ID_CONFIG_PROFILES);
    config.timeFormat = leastTimeFormat +
                        static_cast<std::uint32_t>(SendMessageW(Control(ID_CONFIG_TIME), CB_GETCURSEL, 0, 0));
    WriteConfig(config);
    if (IsChecked(ID_CONFIG_OUTPUT_SET)) {
        const auto scope = SendMessageW(Control(ID_CONFIG_OUTPUT_SCOPE), CB_GETCURSEL, 0, 0);
        SetOutputFolders(AddBackslash(FolderIn(ID_CONFIG_OUTPUT)), static_cast<clFolderScope>(scope));
    }
    if (IsChecked(ID_CONFIG_FORGET))
        ForgetDecoders();
    const bool wanted = IsChecked(ID_CONFIG_EXPLORER);
    if (wanted != WereRegistered && !Seams.registerEntries(wanted))
        MessageBoxW(Hwnd, L"Not all of the entries in Explorer's menus could be changed.", L"Zephtone",
                    MB_OK | MB_ICONEXCLAMATION);
}
