#include "PanelHost.h"

#include "EncoderDriver.h"

#include <gtest/gtest.h>

namespace {

INT_PTR CALLBACK HostProcedure(HWND, UINT message, WPARAM, LPARAM) noexcept {
    return message == WM_INITDIALOG;
}

} // namespace

PanelHost::PanelHost(int points, const wchar_t* font) {
    constexpr DWORD style = WS_POPUP | WS_CAPTION | WS_VISIBLE | DS_SETFONT | DS_MODALFRAME;
    // DIALOGEX: version, signature, help, extended style, style, no controls, place, no menu, class, title
    std::vector<WORD> bytes = {1,  0xFFFF, 0,   0, 0, 0, LOWORD(style), HIWORD(style), 0, 20,
                               20, 341,    306, 0, 0, 0};
    bytes.insert(bytes.end(), {static_cast<WORD>(points), FW_NORMAL, DEFAULT_CHARSET << 8});
    bytes.insert(bytes.end(), font, font + TextLength(font) + 1);
    window = CreateDialogIndirectParamW(GetModuleHandleW(nullptr),
                                        reinterpret_cast<const DLGTEMPLATE*>(bytes.data()), nullptr,
                                        HostProcedure, 0);
    const auto add = [this](const wchar_t* kind, const wchar_t* text, int y, INT_PTR id) {
        const RECT r = InPixels(21, y, 60, 14);
        return CreateWindowExW(0, kind, text, WS_CHILD | WS_VISIBLE | WS_TABSTOP, r.left, r.top,
                               r.right - r.left, r.bottom - r.top, window, reinterpret_cast<HMENU>(id),
                               nullptr, nullptr);
    };
    above = add(L"Edit", L"", 14, 1001);
    below = add(L"Button", L"OK", 285, IDOK);
}

PanelHost::~PanelHost() {
    DestroyWindow(window);
}

RECT PanelHost::InPixels(int x, int y, int width, int height) const {
    RECT area{x, y, x + width, y + height};
    MapDialogRect(window, &area);
    return area;
}

void PanelHost::PressKey(WPARAM key) const {
    const HWND focus = GetFocus();
    for (const UINT message : {WM_KEYDOWN, WM_KEYUP}) {
        MSG press{};
        press.hwnd = focus;
        press.message = message;
        press.wParam = key;
        if (!IsDialogMessageW(window, &press))
            DispatchMessageW(&press);
    }
}

PanelDriver::PanelDriver(const wchar_t* name) : isEncoder(XString(name).StartsWith(L"encoder")) {
    const XString folder = TestedProgramFolder(), path = folder + name + L".dll";
    SetDllDirectoryW(folder); // where the libraries stand that plug-ins import
    PluginCreateBlock block{};
    EXPECT_TRUE(isEncoder ? encoder.Load(path) && encoder.Recreate(&block)
                          : effect.Load(path) && effect.Recreate(&block));
}

HWND PanelDriver::Show(const PanelHost& host, const wchar_t* settings) {
    const RECT place = host.InPixels(21, 33, 300, 120);
    isEncoder ? encoder.ShowConfig(host.window, place.left, place.top, settings)
              : effect.ShowConfig(host.window, place.left, place.top, settings);
    return FindWindowExW(host.window, nullptr, L"#32770", nullptr);
}

bool PanelDriver::Accepts(const wchar_t* settings) {
    PluginParams params{};
    params.text1 = settings;
    return !isEncoder || encoder.AskGet(L"Check Settings", params) != 0;
}

std::vector<HWND> TabStops(HWND dialog) {
    std::vector<HWND> stops;
    const HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
    for (HWND stop = first; stop && stops.size() < 100; stop = GetNextDlgTabItem(dialog, stop, FALSE)) {
        if (stop == first && !stops.empty())
            break;
        stops.push_back(stop);
    }
    return stops;
}

XString WindowText(HWND window) {
    wchar_t text[512] = L"";
    GetWindowTextW(window, text, 512);
    return text;
}

XString ClassOf(HWND window) {
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return name;
}
