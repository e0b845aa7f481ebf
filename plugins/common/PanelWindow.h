// The settings panel of a plug-in: a child dialog from the plug-in's own resources on a form of the
// host. A panel is a class derived from this one that moves options to controls and back.
//
// The panel speaks the parent's font, so that its dialog units are the parent's at every resolution.
// Its controls follow the theme of the executable, as the caller's activation context is the
// executable's. Everything runs on the thread of the parent.
#pragma once

#include "plugins/common/SettingsText.h"

#include <windows.h>

class PanelWindow {
public:
    // The number of a dialog template (DIALOGEX with DS_CONTROL, WS_CHILD, WS_EX_CONTROLPARENT and a
    // FONT) in this library.
    explicit PanelWindow(int dialogId) noexcept : dialogId(dialogId) {}
    virtual ~PanelWindow();
    PanelWindow(const PanelWindow&) = delete;
    PanelWindow& operator=(const PanelWindow&) = delete;

    // Opens the panel at a point of the parent's client area, in pixels, filled from the settings. It
    // comes in the order of Tab where it stands on the parent, without taking the focus. Where no
    // window can be made, the settings come back from Remove as they are.
    void Show(HWND parent, int x, int y, const wchar_t* settings);
    // The settings as the panel shows them; closes it unless the parent is ztKeepPanel. The text lives
    // until the next Show or Remove. Also good after the parent has taken the panel down with it.
    [[nodiscard]] const wchar_t* Remove(const void* parent);

protected:
    virtual void Fill(const SettingsText& settings) = 0;
    virtual void Collect(SettingsText& settings) = 0;
    // The user pressed, chose, moved or typed, or Fill has ended (id 0).
    virtual void OnChanged(int /*id*/) {}

    [[nodiscard]] HWND Control(int id) const noexcept { return GetDlgItem(window, id); }
    [[nodiscard]] bool IsChecked(int id) const noexcept;
    void SetChecked(int id, bool on) const noexcept;
    void SetText(int id, const wchar_t* text) const; // no flicker where nothing changed
    [[nodiscard]] XString Text(int id) const;
    // Drop lists whose items stand for numbers. Choosing a number that none has chooses the first.
    void AddItem(int id, const wchar_t* text, int number) const;
    // The usual numbers, which rise, and among them `present` unless it is 0.
    template <int count>
    void AddNumbers(int id, const int (&usual)[count], int present, const wchar_t* unit) const {
        AddNumbers(id, usual, count, present, unit);
    }
    void ChooseItem(int id, int number) const;
    [[nodiscard]] bool HasItem(int id, int number) const;
    [[nodiscard]] int ChosenItem(int id) const; // 0 without a choice
    // Sliders.
    void SetSlider(int id, int minimum, int maximum, int position) const;
    [[nodiscard]] int Slider(int id) const noexcept;

    HWND window = nullptr; // null: not open

private:
    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wide, LPARAM data) noexcept;
    INT_PTR OnMessage(UINT message, WPARAM wide, LPARAM data);
    void Read();
    void TakePlaceInTabOrder() const;
    void AddNumbers(int id, const int* usual, int count, int present, const wchar_t* unit) const;
    [[nodiscard]] int FindItem(int id, int number) const;

    int dialogId;
    bool isFilling = false;
    XString settings; // as they came, then as they were read last
};
