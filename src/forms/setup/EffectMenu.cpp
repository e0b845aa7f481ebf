#include "forms/setup/EffectMenu.h"

#include "engine/ProgressText.h"
#include "forms/setup/ShellActions.h"
#include "foundation/XFindFile.h"
#include "foundation/XPath.h"
#include "host/CodecHandler.h"
#include "host/EffectChain.h"
#include "resources/ids.h"

#include <vector>

namespace {

constexpr int iconEdge = 16;
constexpr std::size_t longestPath = 0x8000; // units

struct MenuIcon {
    UINT command;
    int icon;
};
constexpr MenuIcon menuIcons[] = {
    {ID_EFFECT_REMOVE, ID_ICON_CHAIN_REMOVE},
    {ID_EFFECT_LOAD, ID_ICON_CHAIN_LOAD},
    {ID_EFFECT_SAVE, ID_ICON_CHAIN_SAVE},
};

// File names. Those that begin with an underscore are for chains made elsewhere, not for the menu.
void FindEffects(XStringArray& names) {
    XFindFile files(EffectFolder(), L"*.dll");
    while (files.Next())
        if (!files.IsFolder() && files.findData.cFileName[0] != L'_')
            names.AddString(files.findData.cFileName);
    names.SortTexts(true);
}

void AddEffectItems(XOwnerMenu& menu, const XStringArray& names) {
    clMenuEntry entry;
    entry.Parent = GetSubMenu(menu.Popup(), 0);
    entry.Id = ID_EFFECT_FIRST;
    entry.Text = L"Install DSP Effects Now...";
    if (names.IsEmpty())
        (void)menu.AddItem(entry, true);
    for (const XString& name : names) {
        const XString shown = NameWithoutExtension(name);
        const XIcon icon = GetEffectIcon(EffectFolder() + name); // the item keeps a copy
        entry.Text = shown;
        entry.Icon = icon.Get();
        (void)menu.AddItem(entry, true);
        ++entry.Id;
    }
    menu.RemoveItem(ID_EFFECT_PLACEHOLDER);
}

bool FillMenu(XOwnerMenu& menu, const XStringArray& names, const EffectChainList& list) {
    if (!menu.Load(ID_MENU_EFFECTS))
        return false;
    for (const MenuIcon& row : menuIcons) {
        const XIcon icon(static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(row.icon),
                                                       IMAGE_ICON, iconEdge, iconEdge, LR_DEFAULTCOLOR)));
        menu.SetItemIcon(row.command, icon.Get());
    }
    AddEffectItems(menu, names);
    if (list.SelectedRow() < 0)
        menu.EnableItem(ID_EFFECT_REMOVE, false);
    if (list.RowCount() == 0) {
        menu.EnableItem(ID_EFFECT_CLEAR, false);
        menu.EnableItem(ID_EFFECT_SAVE, false);
    }
    return true;
}

UINT Track(HWND form, XOwnerMenu& menu, HWND button) {
    POINT point{};
    RECT place{};
    GetCursorPos(&point);
    const bool isOnButton = GetWindowRect(button, &place) && PtInRect(&place, point);
    return button && !isOnButton ? menu.TrackBelow(form, button) : menu.Track(form);
}

// Shows one of the two file dialogs; empty when the user cancelled.
XString AskFileName(const std::function<bool(OPENFILENAMEW&)>& ask, HWND form, const wchar_t* title,
                    DWORD flags, const wchar_t* extension) {
    std::vector<wchar_t> path(longestPath);
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = form;
    dialog.lpstrFilter = L"DSP Effect Selections (*.dspeffect)\0*.dspeffect\0";
    dialog.nFilterIndex = 1;
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.lpstrTitle = title;
    dialog.lpstrDefExt = extension;
    dialog.Flags = flags;
    return ask(dialog) ? XString(path.data()) : XString();
}

bool AskSystemSaveName(OPENFILENAMEW& dialog) {
    return GetSaveFileNameW(&dialog) != 0;
}
bool AskSystemOpenName(OPENFILENAMEW& dialog) {
    return GetOpenFileNameW(&dialog) != 0;
}

void Save(HWND form, const EffectChainList& list, const clEffectSeams& seams) {
    const XString chosen =
        AskFileName(seams.askSaveName ? seams.askSaveName : AskSystemSaveName, form,
                    L"Zephtone: Save DSP Effect Selections",
                    OFN_EXPLORER | OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, effectFileExtension);
    if (!chosen.IsEmpty())
        WriteEffectFile(EffectFileName(chosen), list.ToText(), true);
}

void Load(HWND form, EffectChainList& list, const clEffectSeams& seams) {
    const XString chosen = AskFileName(seams.askOpenName ? seams.askOpenName : AskSystemOpenName, form,
                                       L"Zephtone: Load DSP Effect Selections",
                                       OFN_EXPLORER | OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST, nullptr);
    if (!chosen.IsEmpty())
        list.FromText(ReadEffectFile(chosen)); // a file that can't be read empties the chain
}

void Act(UINT command, const XStringArray& names, HWND form, EffectChainList& list,
         const clEffectSeams& seams) {
    switch (command) {
    case 0:
        return;
    case ID_EFFECT_REMOVE:
        list.RemoveRow(list.SelectedRow());
        return;
    case ID_EFFECT_CLEAR:
        if (MessageBoxW(form, L"Clear All?", programCaption, MB_YESNO | MB_ICONQUESTION) == IDYES)
            list.Clear();
        return;
    case ID_EFFECT_SAVE:
        Save(form, list, seams);
        return;
    case ID_EFFECT_LOAD:
        Load(form, list, seams);
        return;
    default:
        if (names.IsEmpty())
            seams.openAddress ? seams.openAddress(effectsAddress) : OpenDocument(effectsAddress);
        else if (command >= ID_EFFECT_FIRST && command < ID_EFFECT_FIRST + names.Count())
            list.AddEffect(EffectFolder() + names[command - ID_EFFECT_FIRST]);
    }
}

} // namespace

void ShowEffectMenu(HWND form, XOwnerMenu& menu, EffectChainList& list, HWND button,
                    const clEffectSeams& seams) {
    POINT point{};
    const bool isClicked = list.TakeMenuPoint(point);
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    if (GetGUIThreadInfo(GetCurrentThreadId(), &thread) && (thread.flags & GUI_INMENUMODE) != 0)
        return; // the menu that is open would lose its items
    XStringArray names;
    FindEffects(names);
    if (!FillMenu(menu, names, list))
        return;
    const UINT command = isClicked ? menu.TrackAt(form, point.x, point.y) : Track(form, menu, button);
    menu.Reset();
    Act(command, names, form, list, seams);
}
