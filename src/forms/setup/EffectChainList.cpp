#include "forms/setup/EffectChainList.h"

#include "forms/setup/EffectSettingsDialog.h"
#include "foundation/XPath.h"
#include "host/CodecHandler.h"
#include "host/EffectChain.h"
#include "resources/ids.h"

#include <utility>

namespace {

constexpr COLORREF settingsColour = 0xC0C0C0; // pale: for information only
constexpr int iconX = 8;                      // pixels at 96 dots per inch

// The callback of a row's button.
void OnEffectSettings(XValueList& list, int) {
    const int row = list.SelectedRow();
    if (row < 0)
        return;
    const XString path = EffectLibraryPath(list.Rows[row].Caption);
    const XString settings = ShowEffectSettings(list.Parent, path, list.Rows[row].Value);
    if (row >= list.RowCount())
        return;
    list.Rows[row].Value = settings;
    list.Redraw();
}

} // namespace

void EffectChainList::OnContextMenu(int x, int y) {
    menuPoint = {x, y};
    hasMenuPoint = PostMessageW(Parent, WM_COMMAND, ID_EFFECT_ADD, 0) != 0;
}

bool EffectChainList::TakeMenuPoint(POINT& point) {
    point = menuPoint;
    return std::exchange(hasMenuPoint, false);
}

XString EffectChainList::ToText() const {
    XArray<clChainEntry> chain;
    for (const clValueRow& row : Rows) {
        clChainEntry* entry = chain.AddNew();
        entry->name = row.Caption;
        entry->settings = row.Value;
    }
    return EffectChainToText(chain);
}

void EffectChainList::FromText(const XString& chainText) {
    XArray<clChainEntry> chain;
    EffectChainFromText(chain, chainText);
    const XValueListFill fill(*this);
    Clear();
    for (const clChainEntry& entry : chain)
        AddEffectRow(entry.name, entry.settings, EffectLibraryPath(entry.name), -1);
}

void EffectChainList::AddEffect(const XString& libraryPath) {
    const XString settings = ShowEffectSettings(Parent, libraryPath, XString());
    const int selected = SelectedRow();
    const int last = RowCount() - 1;
    const int position = selected >= 0 && selected < last ? selected : RowCount();
    AddEffectRow(NameWithoutExtension(libraryPath), settings, libraryPath, position);
    SelectRow(position);
    Redraw();
}

void EffectChainList::AddEffectRow(const XString& name, const XString& settings, const XString& libraryPath,
                                   int position) {
    const XIcon icon = GetEffectIcon(libraryPath); // the row keeps a copy
    clValueRowDesc row;
    row.Kind = valueText;
    row.Caption = name;
    row.Value = settings;
    row.ValueColour = settingsColour;
    row.Icon = icon.Get();
    row.IconX = iconX;
    row.ButtonText = L"Settings";
    row.OnButton = OnEffectSettings;
    AddRow(row, position);
}
