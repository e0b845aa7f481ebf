// A dialog as the program has them, and a plug-in library's panel on it.
#pragma once

#include "host/clZtDSP.h"
#include "host/clZtEncoder.h"

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
    explicit PanelDriver(const wchar_t* name); // such as L"encoder\\Wave"

    HWND Show(const PanelHost& host, const wchar_t* settings); // the panel's window, or null
    [[nodiscard]] XString Remove(HWND parent) {
        return isEncoder ? encoder.RemoveConfig(parent) : effect.RemoveConfig(parent);
    }
    [[nodiscard]] XString Live() { return Remove(static_cast<HWND>(ztKeepPanel)); }
    [[nodiscard]] bool Accepts(const wchar_t* settings); // encoders only
    void Destroy() { isEncoder ? encoder.DestroyInstance() : effect.DestroyInstance(); }

private:
    bool isEncoder;
    clZtEncoder encoder; // one of them is used
    clZtDSP effect;
};

// Tab stops of a dialog in the order of Tab, those of child dialogs included.
[[nodiscard]] std::vector<HWND> TabStops(HWND dialog);
[[nodiscard]] XString WindowText(HWND window);
[[nodiscard]] XString ClassOf(HWND window);
