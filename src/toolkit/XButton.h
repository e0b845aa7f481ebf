// A drawn push button: a static child window whose group draws it and hands it the mouse.
#pragma once

#include "toolkit/XBitmap.h"
#include "toolkit/XButtonLook.h"
#include "toolkit/XDisplayList.h"
#include "toolkit/XSubClassCtrl.h"

#include <climits>
#include <cstdint>
#include <memory>

class XButtonGroup;
class XToolTip;
class XWindow;

// Fields may be read at any time on the thread of forms. A button is a member of its form and has a
// window from AddButton until it is removed; a click may remove it.
class XButton : public XSubClassCtrl {
public:
    XButton();
    ~XButton() override; // leaves the group

    // `rightButton` is false for the left button and for keys, access keys and BM_CLICK.
    virtual void OnClick(bool rightButton);
    virtual void OnRepeat(bool still); // each tick while pressed or held on; `still`: by no press
    virtual void OnPress(bool rightButton);
    virtual void OnReleaseOutside(bool rightButton);

    // Shows `state`. Without a `dc` in the window, and only if the state is new or `force` is set.
    void Draw(HDC dc, std::uint32_t state, bool force);
    void Redraw() { Draw(nullptr, State, true); }
    // Held down as the pause button is, or popped up.
    void SetToggle(bool down);
    // Greyed, and neither clicked nor reached by keys.
    void Enable(bool enabled);
    void Focus();
    // In pixels of the parent's client area. The faces fit themselves to the size.
    void Place(int x, int y, int width, int height);
    [[nodiscard]] bool IsEnabled() const;
    [[nodiscard]] bool TakesFocus() const noexcept { return (Flags & buttonFocus) != 0; }

    LRESULT OnMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled) override;

    std::uint32_t State = buttonNormal;
    std::uint8_t LeftDown = 0, RightDown = 0, KeyDown = 0; // which input holds the button pressed
    XButton* Partner = nullptr;                            // hovering over it counts as over this one
    POINT LastCursor{INT_MIN, INT_MIN};                    // where the last click ended, screen pixels
    std::uint32_t Flags = buttonStandard;
    int MenuId = 0;       // a menu of the program's module, 0 for none
    HMENU Menu = nullptr; // borrowed; wins over MenuId
    HWND Window = nullptr;
    XWindow* Owner = nullptr;
    XBitmap Face;
    XBitmap Screen, Back;
    std::int32_t Width = 0, Height = 0;
    XButtonGroup* Group = nullptr;
    std::uint8_t UsesLists = 0;
    XDisplayList NormalFace, HoverFace, PressedFace, HeldOnFace, DisabledFace, FocusFace;
    std::uint32_t Toggle = 0; // not 0: looks held on in the normal state
    std::unique_ptr<XToolTip> Tip;

    // Of the process: no focus is shown before the first Tab, so that mouse users never see one.
    static std::uint8_t ShowFocus;

private:
    friend class XButtonGroup;

    [[nodiscard]] bool HasMenu() const noexcept { return Menu || MenuId; }
    [[nodiscard]] XDisplayList& List(clButtonFace face);
    void ClearFaces();
    void PrepareScreens(HDC dc);
    void DrawList(std::uint32_t state, bool focused);
    void DrawBitmap(std::uint32_t state, bool focused);
    void DrawFrame(clButtonFace face);
    void KeyPressed();
    void KeyReleased();
    void Push();
    void Settle(); // shows the state that the cursor gives
    void Popup();

    std::uint8_t OwnFaces = 0; // the lists are the group's standard faces, and go with the window
};
