#include "forms/setup/EffectSettingsDialog.h"

#include "foundation/XPath.h"
#include "resources/ids.h"

namespace {

constexpr int panelY = 14; // dialog units, as the next
constexpr int panelWidth = 300;

} // namespace

EffectSettingsDialog::EffectSettingsDialog(HWND parent, const XString& libraryPath, const XString& settings)
    : LibraryPath(libraryPath), Settings(settings) {
    ShowModal(ID_DIALOG_EFFECT_SETTINGS, parent);
}

EffectSettingsDialog::~EffectSettingsDialog() {
    Destroy();
}

void EffectSettingsDialog::OnClose() {
    EndDialog(Hwnd, 1);
}

void EffectSettingsDialog::OnOK() {
    EndDialog(Hwnd, 1);
}

void EffectSettingsDialog::OnShow(LPARAM) {
    if (isFilled) // it comes back with a form that was minimised
        return;
    isFilled = true;
    SetWindowTextW(Hwnd, L"Zephtone DSP Settings: " + NameWithoutExtension(LibraryPath));
    Effect.Unload();
    PluginCreateBlock block{};
    if (Effect.Load(LibraryPath) && Effect.Recreate(&block))
        ShowPanel();
}

void EffectSettingsDialog::ShowPanel() {
    RECT units{0, panelY, panelWidth, panelY};
    MapDialogRect(Hwnd, &units);
    RECT client{};
    GetClientRect(Hwnd, &client);
    Effect.ShowConfig(Hwnd, client.right / 2 - units.right / 2, units.top, Settings);
    FocusFirst();
}

// The panel came after the button, but it is where the user goes on.
void EffectSettingsDialog::FocusFirst() const {
    if (const HWND first = GetNextDlgTabItem(Hwnd, nullptr, FALSE))
        PostMessageW(Hwnd, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(first), TRUE);
}

void EffectSettingsDialog::OnDestroy() {
    Settings = Effect.RemoveConfig(Hwnd);
    EndPanel();
    Effect.Unload();
}

// Windows that a library has left behind must not outlive its code.
void EffectSettingsDialog::EndPanel() {
    const HWND button = Control(IDOK);
    for (HWND child = GetWindow(Hwnd, GW_CHILD); child;) {
        const HWND next = GetWindow(child, GW_HWNDNEXT);
        if (child != button)
            DestroyWindow(child);
        child = next;
    }
}

XString ShowEffectSettings(HWND parent, const XString& libraryPath, const XString& settings) {
    return EffectSettingsDialog(parent, libraryPath, settings).Settings;
}
