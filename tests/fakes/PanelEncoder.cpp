// An encoder of the tests' own whose panel is one edit field (control 5000) with the settings text.
// FAKE_NO_SAME_FOLDER, FAKE_NO_FOLDER: it does not offer that output.
#define FAKE_OWN_PANEL // the host removes it before the end
#include "QuietExports.h"
#include "contract/Keys.h"

#include <windows.h>

namespace {

HWND panel = nullptr;
wchar_t settings[512];

} // namespace

FAKE_EXPORT std::int32_t ENC_Get(ZtInstance, const wchar_t* key, PluginParams* params) {
    if (IsText(key, ZtKey::extension))
        params->text1 = L".fke";
#ifdef FAKE_NO_SAME_FOLDER
    if (IsText(key, ZtKey::disableSameFolder))
        return 1;
#endif
#ifdef FAKE_NO_FOLDER
    if (IsText(key, ZtKey::disableConvertToFolder))
        return 1;
#endif
    return IsText(key, ZtKey::extension);
}
FAKE_EXPORT void ENC_ShowConfigBit(ZtInstance, void* parent, std::int32_t x, std::int32_t y,
                                   const wchar_t* text) {
    panel =
        CreateWindowExW(0, L"EDIT", text, WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP, x, y, 200, 22,
                        static_cast<HWND>(parent), reinterpret_cast<HMENU>(INT_PTR{5000}), nullptr, nullptr);
}
FAKE_EXPORT const wchar_t* ENC_RemoveConfigBit(ZtInstance, void* parent) {
    GetWindowTextW(panel, settings, 512);
    if (parent != ztKeepPanel) {
        DestroyWindow(panel);
        panel = nullptr;
    }
    return settings;
}
