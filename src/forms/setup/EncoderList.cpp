// The encoder list of the set-up form: filling it, and what a chosen row does.
#include "engine/ProgressText.h"
#include "forms/setup/frmConvertToOpt.h"
#include "forms/setup/frmNewProfile.h"
#include "foundation/XFileSystem.h"
#include "foundation/XFindFile.h"
#include "foundation/XPath.h"
#include "host/Settings.h"

#include <algorithm>

namespace {

constexpr COLORREF notInstalledColour = 0xA0A0A0;
constexpr wchar_t usualEncoder[] = L"Wave";

bool IsProfileRow(const EncoderListItem& item) {
    return item.Kind == rowProfile;
}

bool IsItemRow(const EncoderListItem& item) {
    return item.Kind == rowEncoder || item.Kind == rowProfile;
}

bool IsStep(UINT message, WPARAM wParam) {
    return message == WM_MOUSEWHEEL || (message == WM_KEYDOWN && wParam >= VK_PRIOR && wParam <= VK_DOWN);
}

} // namespace

// A library is loaded for its extension, which takes some 10 ms: not where it has an icon of its own,
// and once for a hundred profiles of one encoder.
HICON frmConvertToOpt::_CmbEncoders::IconOf(const XString& encoder) {
    for (std::int64_t i = 0; i < iconNames.Count(); ++i)
        if (iconNames[i] == encoder)
            return icons[i].Get();
    const XString library = EncoderLibraryPath(encoder);
    const bool hasIcon = IsFile(StripExtension(library) + L".ico");
    const XString extension = hasIcon ? XString() : GetEncoderExtension(encoder);
    iconNames.AddString(encoder);
    return icons.AddNew(GetEncoderIcon(extension, library))->Get();
}

void frmConvertToOpt::_CmbEncoders::Bind(HWND combo) {
    XDropList::Attach(combo, false);
    XSubClassCtrl::Attach(combo);
}

void frmConvertToOpt::_CmbEncoders::Fill() {
    AddEncoders();
    AddInstallable();
    if (RegReadDword(Setting::allowProfiles) != 0)
        AddCommands();
    AddProfiles();
    const XString last = RegReadString(Setting::lastCodec);
    int row = -1;
    for (std::int64_t i = 0; i < Items.Count(); ++i)
        if (IsItemRow(Items[i]) && Rows[i].Text == last)
            row = static_cast<int>(i);
    Select(row >= 0 ? row : FindRow(usualEncoder));
}

void frmConvertToOpt::_CmbEncoders::Add(std::uint32_t kind, const wchar_t* text, HICON icon,
                                        const wchar_t* address, COLORREF colour) {
    if (AddRow(text, icon, -1, colour) < 0)
        return;
    EncoderListItem* item = Items.AddNew();
    item->Kind = kind;
    item->Text = address;
}

void frmConvertToOpt::_CmbEncoders::AddEncoders() {
    XStringArray files;
    XFindFile search(EncoderFolder(), L"*.dll");
    while (search.Next())
        if (!search.IsFolder())
            files.AddString(search.findData.cFileName);
    files.SortTexts(true);
    for (const XString& file : files) {
        const XString name = StripExtension(file);
        Add(rowEncoder, name, IconOf(name));
    }
}

void frmConvertToOpt::_CmbEncoders::AddInstallable() {
    XArray<clSmartInstall> records;
    ReadSmartInstallList(records);
    for (const clSmartInstall& record : records) {
        XStringArray listed;
        for (const clDropRow& row : Rows)
            listed.AddString(row.Text);
        if (!IsSmartInstallOffered(record, listed))
            continue;
        const XIcon icon = GetEncoderIcon(record.extension, EncoderLibraryPath(record.name));
        Add(rowNotInstalled, record.name, icon.Get(), record.address, notInstalledColour);
    }
}

void frmConvertToOpt::_CmbEncoders::AddCommands() {
    AddSeparator();
    Add(rowNewProfile, L"[Create New Profile]", nullptr);
    Add(rowDeleteProfile, L"[Delete Selected Profile]", nullptr);
}

void frmConvertToOpt::_CmbEncoders::AddProfiles() {
    XStringArray keys;
    RegEnumSubkeys(nullptr, SettingsPath(Setting::keyCodecs), keys);
    for (const XString& key : keys)
        if (IsProfileItem(key))
            Add(rowProfile, key, IconOf(EncoderNameOf(key)));
}

int frmConvertToOpt::_CmbEncoders::FindRow(const XString& text) const {
    for (std::int64_t i = 0; i < Rows.Count(); ++i)
        if (Rows[i].Text == text)
            return static_cast<int>(i);
    return -1;
}

void frmConvertToOpt::_CmbEncoders::Select(int row) {
    row = std::clamp(row, 0, std::max(0, static_cast<int>(Rows.Count()) - 1));
    SendMessageW(Combo, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
}

bool frmConvertToOpt::_CmbEncoders::IsOnCommand() const {
    const int row = Selected();
    return row >= 0 && (Items[row].Kind == rowNewProfile || Items[row].Kind == rowDeleteProfile);
}

LRESULT frmConvertToOpt::_CmbEncoders::OnMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                                                 std::uint32_t& handled) {
    if (!IsStep(message, wParam))
        return 0;
    handled = 1;
    isStepping = true;
    stepFrom = Selected();
    const LRESULT result = CallWindowProcW(OldProc, hwnd, message, wParam, lParam);
    isStepping = false;
    return result;
}

// Arrow keys and the wheel reach every row on their way: a command is only run when it was chosen
// by a click or by its first letter, else a turn of the wheel would delete a profile.
void frmConvertToOpt::_CmbEncoders::PassOverCommands() {
    const int step = Selected() < stepFrom ? -1 : 1;
    int row = Selected();
    while (row >= 0 && row < Items.Count() && !IsItemRow(Items[row]))
        row += step;
    if (row < 0 || row >= Items.Count())
        row = stepFrom;
    SendMessageW(Combo, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
}

void frmConvertToOpt::_CmbEncoders::OnChanging() {
    if (isStepping)
        PassOverCommands();
    const int row = Selected();
    if (row < 0 || row >= Items.Count())
        return;
    switch (Items[row].Kind) {
    case rowNotInstalled:
        AskToInstall(row);
        break;
    case rowNewProfile:
        ProfileCommand(false);
        break;
    case rowDeleteProfile:
        ProfileCommand(true);
        break;
    default:
        break;
    }
    form.OnEncoderChanged(false);
}

void frmConvertToOpt::_CmbEncoders::AskToInstall(int row) {
    const XString name = Rows[row].Text;
    const XString address = Items[row].Text;
    SelectByText(form.CurrentItem);
    const XString question = L"The encoder '" + name +
                             L"' has to be downloaded and installed before it can be used.\r\n\r\n"
                             L"Download encoder from Internet now?";
    if (MessageBoxW(nullptr, question, programCaption, MB_YESNO | MB_TOPMOST) == IDYES)
        form.seams.openDocument(address);
}

void frmConvertToOpt::_CmbEncoders::ProfileCommand(bool isDelete) {
    const int current = FindRow(form.CurrentItem);
    if (current < 0)
        return;
    if (isDelete)
        DeleteProfile(current);
    else
        CreateProfile(current);
}

// The profile's key arises when its settings are saved for the first time.
void frmConvertToOpt::_CmbEncoders::CreateProfile(int current) {
    const XString encoder = EncoderNameOf(form.CurrentItem);
    XStringArray existing;
    for (std::int64_t i = 0; i < Items.Count(); ++i)
        if (IsProfileRow(Items[i]))
            existing.AddString(Rows[i].Text);
    XString created;
    { const frmNewProfile ask(form.Hwnd, created, encoder, existing); }
    if (created.IsEmpty()) {
        Select(current);
        return;
    }
    Add(rowProfile, created, IconOf(encoder));
    Select(static_cast<int>(Rows.Count()) - 1);
}

// Saving the panel would make the profile again.
void frmConvertToOpt::_CmbEncoders::DeleteProfile(int current) {
    if (!IsProfileRow(Items[current])) {
        Select(current);
        return;
    }
    DeleteRecipe(form.CurrentItem);
    RemoveRow(current);
    Items.DeleteAt(current);
    Select(0);
    form.CloseEncoderPanel(false);
}
