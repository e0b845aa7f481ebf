// Drawing of buttons: into an off-screen image and from there to the window in one go.
#include "toolkit/XButton.h"

#include "toolkit/XButtonGroup.h"
#include "toolkit/XToolkitState.h"

void XButton::Draw(HDC dc, std::uint32_t state, bool force) {
    if (!Window || !Group || (!force && !dc && state == State))
        return;
    const XLocked lock(Group->Lock);
    State = state;
    if (Width <= 0 || Height <= 0 || (UsesLists ? NormalFace.LayerCount == 0 : !Face.IsValid()))
        return;
    const HDC own = dc ? nullptr : GetDC(Window);
    const HDC target = dc ? dc : own;
    PrepareScreens(target);
    if (Toggle) {
        POINT cursor{};
        GetCursorPos(&cursor);
        state = ToggledState(state, cursor.x == LastCursor.x && cursor.y == LastCursor.y);
    }
    const bool focused = ShowFocus && TakesFocus() && GetFocus() == Window;
    if (UsesLists)
        DrawList(state, focused);
    else
        DrawBitmap(state, focused);
    Screen.Blit(target, 0, 0);
    if (own)
        ReleaseDC(Window, own);
}

// Both screens in the button's size, the background of the parent in `Back`.
void XButton::PrepareScreens(HDC dc) {
    if (Screen.Width() == Width && Screen.Height() == Height)
        return;
    Screen.Create(dc, Width, Height);
    Back.Create(dc, Width, Height);
    const HWND parent = GetParent(Window);
    const LRESULT brush = SendMessageW(parent, WM_CTLCOLORDLG, reinterpret_cast<WPARAM>(Back.Dc),
                                       reinterpret_cast<LPARAM>(parent));
    const RECT all{0, 0, Width, Height};
    FillRect(Back.Dc, &all, brush ? reinterpret_cast<HBRUSH>(brush) : GetSysColorBrush(COLOR_3DFACE));
}

XDisplayList& XButton::List(clButtonFace face) {
    switch (face) {
    case clButtonFace::Pressed:
        return PressedFace;
    case clButtonFace::Hover:
        return HoverFace;
    case clButtonFace::Focus:
        return FocusFace;
    case clButtonFace::Disabled:
        return DisabledFace;
    case clButtonFace::HeldOn:
        return HeldOnFace;
    default:
        return NormalFace;
    }
}

void XButton::ClearFaces() {
    for (XDisplayList* list : {&NormalFace, &HoverFace, &PressedFace, &HeldOnFace, &DisabledFace, &FocusFace})
        list->Clear();
}

void XButton::DrawList(std::uint32_t state, bool focused) {
    const auto paint = [this](clButtonFace face) {
        XDisplayList& list = List(face);
        list.FitTo(Width, Height);
        list.Paint(Screen.Dc, 0, 0);
    };
    Back.Blit(Screen.Dc, 0, 0); // for faces with round corners
    paint(ButtonFace(Flags, state, !IsEnabled()));
    if (focused)
        paint(clButtonFace::Focus);
}

void XButton::DrawBitmap(std::uint32_t state, bool focused) {
    const bool masked = (Flags & buttonMask) != 0;
    const bool disabled = !IsEnabled() && (Flags & buttonDisabled);
    clButtonFace face = ButtonFace(Flags, state, disabled && !masked);
    Back.Blit(Screen.Dc, 0, 0);
    DrawFrame(face);
    if (masked && disabled)
        DrawFrame(clButtonFace::Disabled);
    if (focused && (masked || face == clButtonFace::Normal || face == clButtonFace::Hover))
        DrawFrame(clButtonFace::Focus);
}

void XButton::DrawFrame(clButtonFace face) {
    constexpr DWORD takeAway = 0x8800C6; // SRCAND with the mask
    constexpr DWORD putOn = 0xEE0086;    // SRCPAINT
    const int index = ButtonFrameIndex(Flags, face);
    if (index < 0)
        return;
    const int frameWidth = Face.Width() / ButtonFrames(Flags);
    if (!(Flags & buttonMask)) {
        Face.Blit(Screen.Dc, 0, 0, frameWidth, Face.Height(), index * frameWidth, 0);
        return;
    }
    const int frameHeight = Face.Height() / 2;
    Face.Blit(Screen.Dc, 0, 0, frameWidth, frameHeight, index * frameWidth, frameHeight, takeAway);
    Face.Blit(Screen.Dc, 0, 0, frameWidth, frameHeight, index * frameWidth, 0, putOn);
}
