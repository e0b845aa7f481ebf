// An effect that leaves its window behind and gives no settings back. Under a name that begins with R
// it has no instance.
#include "contract/Plugin.h"

#include <windows.h>

namespace {

HMODULE module = nullptr;

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcW(window, message, wParam, lParam);
}

} // namespace

BOOL WINAPI DllMain(HINSTANCE self, DWORD, void*) {
    module = self;
    return TRUE;
}

#define FAKE_EXPORT extern "C" __declspec(dllexport)

FAKE_EXPORT ZtInstance DSP_Create(PluginCreateBlock*) {
    wchar_t path[MAX_PATH] = L"";
    const wchar_t* name = path;
    GetModuleFileNameW(module, path, MAX_PATH);
    for (const wchar_t* at = path; *at; ++at)
        if (*at == L'\\')
            name = at + 1;
    return *name == L'R' ? nullptr : &module;
}
FAKE_EXPORT void DSP_Destroy(ZtInstance) {
    UnregisterClassW(L"tm-odd-effect", module);
}
FAKE_EXPORT std::int32_t DSP_Get(ZtInstance, const wchar_t*, PluginParams*) {
    return 0;
}
FAKE_EXPORT std::int32_t DSP_Set(ZtInstance, const wchar_t*, PluginParams*) {
    return 0;
}
FAKE_EXPORT void DSP_ShowConfigBit(ZtInstance, void* parent, std::int32_t x, std::int32_t y, const wchar_t*) {
    WNDCLASSW kind{};
    kind.lpfnWndProc = Procedure;
    kind.hInstance = module;
    kind.lpszClassName = L"tm-odd-effect";
    RegisterClassW(&kind);
    CreateWindowExW(0, kind.lpszClassName, L"", WS_CHILD | WS_VISIBLE, x, y, 10, 10,
                    static_cast<HWND>(parent), nullptr, module, nullptr);
}
FAKE_EXPORT const wchar_t* DSP_RemoveConfigBit(ZtInstance, void*) {
    return nullptr;
}
FAKE_EXPORT std::int32_t DSP_BeginConversion(ZtInstance, DspBeginBlock*) {
    return 0;
}
FAKE_EXPORT std::int32_t DSP_PassAudioBlock(ZtInstance, DspAudioBlock*) {
    return 0;
}
FAKE_EXPORT std::int32_t DSP_PassNonLive(ZtInstance, DspAudioBlock*) {
    return 0;
}
FAKE_EXPORT std::int32_t DSP_EndConversion(ZtInstance, DspAudioBlock*) {
    return 0;
}
FAKE_EXPORT void DSP_AfterConversion(ZtInstance, std::int32_t) {}
