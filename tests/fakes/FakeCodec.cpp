// An encoder or, with FAKE_EFFECT, an effect of the tests' own. FAKE_MUTE answers every question with
// yes and no text. FAKE_LEAVES gives no settings back and leaves a window of its code behind.
#define FAKE_OWN_INSTANCE
#define FAKE_OWN_PANEL
#include "QuietExports.h"
#ifdef FAKE_LEAVES
#include <windows.h>
#endif

namespace {
int live = 0;
const wchar_t* shown = nullptr;
#ifdef FAKE_LEAVES
LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY)
        SetEnvironmentVariableW(L"TM_FAKE_ENDED", L"1"); // while its code was there
    return DefWindowProcW(window, message, wParam, lParam);
}
#endif
} // namespace

FAKE_EXPORT ZtInstance FAKE_NAME(Create)(PluginCreateBlock*) {
    ++live;
    return &live;
}
FAKE_EXPORT void FAKE_NAME(Destroy)(ZtInstance) {
    --live;
}
FAKE_EXPORT std::int32_t FAKE_NAME(Get)(ZtInstance, const wchar_t* key, PluginParams* params) {
#ifdef FAKE_MUTE
    params->text1 = nullptr;
#else
    params->text1 = L".fake";
#endif
    return key[0] == L'T' ? live : 1;
}
#ifdef FAKE_LEAVES
FAKE_EXPORT void FAKE_NAME(ShowConfigBit)(ZtInstance, void* parent, std::int32_t, std::int32_t,
                                          const wchar_t*) {
    const HWND window = CreateWindowW(L"STATIC", L"", WS_CHILD, 0, 0, 9, 9, static_cast<HWND>(parent),
                                      nullptr, nullptr, nullptr);
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure));
}
#else
FAKE_EXPORT void FAKE_NAME(ShowConfigBit)(ZtInstance, void*, std::int32_t, std::int32_t,
                                          const wchar_t* settings) {
    shown = settings;
}
#endif
FAKE_EXPORT const wchar_t* FAKE_NAME(RemoveConfigBit)(ZtInstance, void*) {
    return shown;
}
