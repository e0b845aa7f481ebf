// A dialog as the program has them, and a plug-in library's panel on it.
#pragma once

#include "contract/Plugin.h"
#include "foundation/XHandles.h"
#include "foundation/XString.h"

#include <vector>

// 341 by 306 dialog units, with an edit control above the panel and the button OK below.
class PanelHost {
public:
    explicit PanelHost(int points = 8, const wchar_t* font = L"MS Shell Dlg");
    ~PanelHost();
    PanelHost(const PanelHost&) = delete;
    PanelHost& operator=(const PanelHost&) = delete;

    [[nodiscard]] RECT InPixels(int x, int y, int width, int height) const;
    // What a key does to the control that has the focus, Tab and arrows included.
    void PressKey(WPARAM key) const;

    HWND window = nullptr;
    HWND above = nullptr;
    HWND below = nullptr;
};

class PanelDriver {
public:
    explicit PanelDriver(const wchar_t* library); // such as L"encoder\\Wave"
    ~PanelDriver();

    HWND Show(const PanelHost& host, const wchar_t* settings); // the panel's window, or null
    [[nodiscard]] XString Remove(HWND parent) { return removePanel(instance, parent); }
    [[nodiscard]] XString Live() { return removePanel(instance, ztKeepPanel); }
    [[nodiscard]] bool Accepts(const wchar_t* settings); // encoders only
    void Destroy();

    ZtInstance instance = nullptr;

private:
    template <class Function>
    void Bind(Function& function, const char* name);

    XModule module;
    bool isEncoder;
    EncoderDestroy destroy = nullptr;
    EncoderGet get = nullptr;
    EncoderShowConfigBit showPanel = nullptr;
    EncoderRemoveConfigBit removePanel = nullptr;
};

// Tab stops of a dialog in the order of Tab, those of child dialogs included.
[[nodiscard]] std::vector<HWND> TabStops(HWND dialog);
[[nodiscard]] XString WindowText(HWND window);
[[nodiscard]] XString ClassOf(HWND window);
