// All drawn buttons of one parent window: makes them, follows the mouse for them and draws them.
#pragma once

#include "foundation/XArray.h"
#include "foundation/XThread.h"
#include "toolkit/XButton.h"

struct clButtonDesc {
    int X = 0, Y = 0, Width = 0, Height = 0; // pixels of the parent; a bitmap gives its own size
    const wchar_t* Caption = L"";            // the window's text, `&` before the access key
    std::uint32_t Flags = 0;                 // clButtonFlags; 0 means buttonStandard
    int Id = 0;                              // the control's id
    int MenuId = 0;                          // the popup that a press opens, 0 for none
    HMENU Menu = nullptr;                    // the same as a menu of the caller, borrowed
    const wchar_t* Tip = nullptr;            // the text of its tool tip, null for none
    bool Disabled = false;
};

// Belongs to the thread of forms. A form hands it every message first:
//     LRESULT result = Buttons.OnParentMessage(hwnd, message, wParam, lParam, handled);
//     if (handled) return result;
// and calls Clear in its OnDestroy.
class XButtonGroup {
public:
    XButtonGroup();
    ~XButtonGroup(); // as Clear
    XButtonGroup(const XButtonGroup&) = delete;
    XButtonGroup& operator=(const XButtonGroup&) = delete;

    // The window that gets the buttons, in its OnInit; starts the timer of the group.
    void Create(HWND parent);
    // Makes the button's window, last in the tab order. With `bitmapId` 0 the button shows its lists;
    // if none was filled yet, it gets the standard faces of its caption. A button that another
    // group or this one has already is removed there first. Borrows `button`.
    void AddButton(XButton& button, const clButtonDesc& description, int bitmapId, XWindow* owner);
    // Ends the button's window and its tip. The object can be added again.
    void RemoveButton(XButton& button);
    void Clear(); // removes all and stops the timer; AddButton starts it again
    LRESULT OnParentMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled);

    static constexpr UINT tickMs = 50;

    UINT_PTR TimerId = 0; // 0 while there is no timer
    std::uint32_t Tick = 0;
    XPointerSlots Buttons; // XButton, borrowed
    XMutex Lock;           // guards Buttons and the states; held while drawing
    HWND Parent = nullptr;

private:
    friend class XButton;

    [[nodiscard]] std::int64_t Find(const XButton* button) const noexcept;
    [[nodiscard]] XButton* FindWindow(HWND window) const noexcept;
    void StartTimer();
    void MakeWindow(XButton& button, const clButtonDesc& description);
    bool HandleInput(UINT message, WPARAM wParam, LPARAM lParam);
    void ForgetClicks();
    void UpdateHover();
    void UpdateHover(POINT cursor);
    void OnTick();
    bool OnDown(POINT cursor, bool rightButton);
    bool OnUp(bool rightButton);
    void OnCaptureLost();
};

inline constexpr int standardFontHeight = 13; // at 96 dots per inch

// Fills all six faces with the caption centred in them, in a font of `fontHeight` pixels; `&`
// underlines the access key. The button's Width and Height are to be set: a caption that is too wide
// is cut. For other heights than the standard one; AddButton does it by itself otherwise.
void BuildTextFaces(XButton& button, const wchar_t* caption, int fontHeight);
