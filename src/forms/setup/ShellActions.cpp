#include "forms/setup/ShellActions.h"

#include "foundation/XOwned.h"
#include "foundation/XPath.h"

#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>

namespace {

int CALLBACK OnFolderDialog(HWND dialog, UINT message, LPARAM, LPARAM selected) noexcept {
    if (message == BFFM_INITIALIZED && selected)
        SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, selected);
    return 0;
}

struct ShellItemKind {
    using Value = PIDLIST_ABSOLUTE;
    static Value None() noexcept { return nullptr; }
    static void Close(Value v) noexcept { CoTaskMemFree(v); }
};

} // namespace

void OpenDocument(const XString& target) {
    const XString folder = target.FindChar(L'\\') ? FolderOf(target) : XString();
    ShellExecuteW(nullptr, nullptr, target, nullptr, folder.IsEmpty() ? nullptr : folder.Text(),
                  SW_SHOWDEFAULT);
}

XString ChooseFolder(HWND owner, const XString& selected) {
    return ChooseFolderFor(L"Zephtone: Select Output Folder", owner, selected);
}

XString ChooseFolderFor(const wchar_t* title, HWND owner, const XString& selected) {
    BROWSEINFOW info{};
    info.hwndOwner = owner;
    info.lpszTitle = title;
    info.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
    info.lpfn = OnFolderDialog;
    info.lParam = reinterpret_cast<LPARAM>(selected.IsEmpty() ? nullptr : selected.Text());
    const XOwned<ShellItemKind> chosen(SHBrowseForFolderW(&info));
    wchar_t path[MAX_PATH] = L"";
    if (chosen.Get())
        SHGetPathFromIDListW(chosen.Get(), path);
    return path;
}
