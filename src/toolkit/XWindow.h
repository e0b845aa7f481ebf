// The base of all forms: one operation per window message, per-window timers, and the ways to show
// a plain window or a dialog. All operations run on the thread that made the window.
#pragma once

#include "foundation/XArray.h"
#include "foundation/XThread.h"

#include <windows.h>

#include <cstdint>

struct CursorKind {
    using Value = HCURSOR;
    static Value None() noexcept { return nullptr; }
    static void Close(Value v) noexcept { DestroyCursor(v); }
};

// A timer of one window. `Id` is that of the system; `Data` is handed to OnTimer and always 0.
struct clWindowTimer {
    std::uint64_t Id = 0;
    std::uint64_t Data = 0;
};

// As an argument of MoveTo: keep the current value.
inline constexpr int keepPosition = -12345;

// What an operation does with its message: `Handled` is 1 when an operation is called, so an
// operation that replaces a default has handled the message unless it sets `Handled` to 0. The
// defaults leave the message to the system, except OnCommand, OnSysCommand, OnTimer's unknown
// timers and the answers OnOK to OnYes. Coordinates are client pixels unless told otherwise.
class XWindow {
public:
    XWindow();
    // Runs Destroy. The derived part is gone by then: a form whose window may still be alive and
    // that needs its OnDestroy calls Destroy in its own destructor.
    virtual ~XWindow();
    XWindow(const XWindow&) = delete;
    XWindow& operator=(const XWindow&) = delete;

    virtual void OnActivate(HWND other, WORD minimised, WORD how);
    virtual void OnClose();
    virtual void OnContextMenu(HWND clicked, int x, int y); // screen pixels, 0..65535
    virtual void OnCommand(int id, HWND control, int notification);
    virtual void OnInit();
    virtual void OnDestroy();
    virtual void OnDeactivate(HWND other, WORD minimised);
    virtual void OnDrawItem(HWND item, int id, DRAWITEMSTRUCT* draw);
    virtual void OnEraseBackground(HDC dc);
    virtual void OnHide(LPARAM reason);
    virtual void OnKeyDown(WPARAM key, LPARAM flags);
    virtual void OnKeyUp(WPARAM key, LPARAM flags);
    virtual void OnChar(wchar_t ch);
    virtual void OnMouseDown(int x, int y, UINT message, WPARAM keys); // WM_LBUTTONDOWN and kin
    virtual void OnMouseUp(int x, int y, UINT message, WPARAM keys);
    virtual void OnMouseMove(int x, int y, WPARAM keys);
    virtual void OnMouseWheel(int x, int y, int delta, WORD keys); // screen pixels
    virtual void OnMove(int x, int y);
    virtual LRESULT OnNotify(NMHDR* header); // returns the message's result
    virtual void OnPaint();                  // the system's own handling always follows
    virtual void OnShow(LPARAM reason);
    virtual void OnSize(int width, int height, WPARAM how);     // client size, 0..65535
    virtual void OnSysCommand(WPARAM command);                  // the system's own handling always follows
    virtual void OnTimer(std::uint64_t id, std::uint64_t data); // while `Lock` is held
    virtual HBRUSH OnColorStatic();                             // a borrowed brush
    virtual HBRUSH OnColorDialog();
    // Sees every message before all others; a `handled` set here ends the dispatch. Forms take
    // WM_COMMAND here. In a dialog the returned value becomes the result that SendMessage answers.
    virtual LRESULT PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled);
    virtual void OnOK(); // these nine run before OnCommand, on notification code 0 alone
    virtual void OnCancel();
    virtual void OnAbort();
    virtual void OnCloseCommand();
    virtual void OnHelp();
    virtual void OnIgnore();
    virtual void OnNo();
    virtual void OnRetry();
    virtual void OnYes();

    // A plain window with a class of its own. `rectangle` is x, y and right and bottom edge in
    // pixels. Without success `Hwnd` stays null.
    void Create(const wchar_t* title, const RECT& rectangle, DWORD style, DWORD extendedStyle, HWND parent,
                UINT classStyle);
    // Ends the native window and its timers; the object can then make a new one.
    void Destroy();

    // Returns the timer's id, or 0 on failure. An `id` of 0 picks one above the largest in use.
    std::uint64_t AddTimer(UINT intervalMs, std::uint64_t id = 0);
    // Outer position and size in pixels; `keepPosition` in an argument keeps that value.
    void MoveTo(int x, int y, int width, int height);
    void CentreOnDesktop();
    // Takes both icons over and keeps copies. Without a window it does nothing, and the icons stay
    // with the caller.
    void SetIcons(HICON icon, HICON smallIcon);
    // A control of this window, or null; null too without a window. Borrowed.
    [[nodiscard]] HWND Control(int id) const noexcept;

    std::uint32_t Handled = 0; // of the message now being dispatched
    HWND Hwnd = nullptr;       // null when there is no window
    bool IsDialog = false;
    XOwned<CursorKind> Cursor;
    XIcon Icon;
    XIcon SmallIcon;
    XString ClassName; // empty for a dialog
    XArray<clWindowTimer> Timers;
    XStringArray TimerNames;               // parallel to Timers, each the empty text
    clWindowTimer* CurrentTimer = nullptr; // last touched by a loop
    XMutex Lock;                           // unnamed; guards the timers, held during OnTimer

protected:
    // Runs the dialog of this module's resource and returns the value of EndDialog, -1 if it could
    // not be made. The constructor of a modal form calls it last and so returns when the form has
    // closed; its operations are then those of the class under construction, which is to be final.
    INT_PTR ShowModal(int resourceId, HWND parent);
    // The same from a template in memory, DWORD-aligned.
    INT_PTR ShowModal(const DLGTEMPLATE* dialog, HWND parent);
    // Returns at once; the window lives until Destroy. False if it could not be made.
    bool ShowModeless(int resourceId, HWND parent);
    bool ShowModeless(const DLGTEMPLATE* dialog, HWND parent);

private:
    friend class XWindowProcedures;

    void Register(HWND hwnd, bool isDialog);
    // The value that the window or dialog procedure returns.
    LRESULT Dispatch(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
    // Calls the operation of one message. True when `result` is to be returned at once.
    bool CallOperation(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void CallCommand(WPARAM wParam, LPARAM lParam);
    void CallTimer(std::uint64_t id);
    void ReplaceClassIcon(HICON given, XIcon& kept, int classIndex);
};

// `value` is pixels at 96 dots per inch; the answer is pixels of this screen, truncated.
[[nodiscard]] int ScaleToDpi(int value);

// Writes `text` to the control only if it differs from `shown`, the text last written, which it
// then replaces. A null control takes nothing, but `shown` follows. True if the text differed.
bool SetTextIfChanged(HWND control, XString& shown, const wchar_t* text);
