// The configuration program: one form, once at a time.
#include "config/frmConfig.h"
#include "foundation/XHandles.h"
#include "host/Settings.h"

#include <objbase.h>

namespace {

constexpr wchar_t instanceName[] = L"mtxZtConfig";
constexpr DWORD showLimitMs = 3000;

// The first may have been started a moment ago and not be on the screen yet.
void BringFirstToFront() {
    const ULONGLONG start = GetTickCount64();
    while (GetTickCount64() - start < showLimitMs) {
        const HWND form = FindWindowW(L"#32770", configCaption);
        if (form && IsWindowVisible(form)) {
            SetForegroundWindow(GetLastActivePopup(form));
            return;
        }
        Sleep(20);
    }
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    const HANDLE made = CreateMutexW(nullptr, FALSE, instanceName);
    const DWORD error = GetLastError();
    const XKernelHandle instance(made);
    if (error == ERROR_ALREADY_EXISTS) {
        BringFirstToFront();
        return 0;
    }
    const HRESULT com = CoInitialize(nullptr);
    SetSettingsRoot(HKEY_CURRENT_USER, L"Software\\Vantrel\\Zephtone");
    { const frmConfig form; }
    if (SUCCEEDED(com))
        CoUninitialize();
    return 0;
}
