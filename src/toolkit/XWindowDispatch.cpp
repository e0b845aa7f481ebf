// From a window message to the operation that answers it, and from there to the procedure's result.
#include "toolkit/XWindow.h"

#include "toolkit/XToolkitState.h"
#include "toolkit/XWindowProcedures.h"

#include <iterator>

namespace {
int SignedX(LPARAM lParam) {
    return static_cast<short>(LOWORD(lParam));
}
int SignedY(LPARAM lParam) {
    return static_cast<short>(HIWORD(lParam));
}

// `Handled` belongs to one message. Operations send messages to their own window all the time, and
// the inner dispatch is not to decide over the outer one.
class MessageFlag {
public:
    explicit MessageFlag(std::uint32_t& flag) noexcept : flag(flag), outer(flag) { flag = 0; }
    ~MessageFlag() { flag = outer; }
    MessageFlag(const MessageFlag&) = delete;
    MessageFlag& operator=(const MessageFlag&) = delete;

private:
    std::uint32_t& flag;
    const std::uint32_t outer;
};
} // namespace

void XWindow::Register(HWND hwnd, bool isDialog) {
    Hwnd = hwnd;
    IsDialog = isDialog;
    XWindowProcedures::Enlist(this);
}

LRESULT XWindow::Dispatch(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    const MessageFlag scope(Handled);
    if (!Hwnd)
        return 0;
    LRESULT result = PreMessage(hwnd, message, wParam, lParam, Handled);
    if (Handled == 0) {
        Handled = 1;
        result = 0;
        if (CallOperation(message, wParam, lParam, result))
            return result;
        if (Handled == 0 && !IsDialog)
            return DefWindowProcW(hwnd, message, wParam, lParam);
    }
    if (!IsDialog)
        return result;
    SetWindowLongPtrW(hwnd, DWLP_MSGRESULT, result);
    return Handled;
}

bool XWindow::CallOperation(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
    case WM_ACTIVATE:
        if (LOWORD(wParam) != WA_INACTIVE)
            OnActivate(reinterpret_cast<HWND>(lParam), HIWORD(wParam), LOWORD(wParam));
        else
            OnDeactivate(reinterpret_cast<HWND>(lParam), HIWORD(wParam));
        return false;
    case WM_CLOSE:
        OnClose();
        return false;
    case WM_CONTEXTMENU:
        OnContextMenu(reinterpret_cast<HWND>(wParam), LOWORD(lParam), HIWORD(lParam));
        return false;
    case WM_COMMAND:
        CallCommand(wParam, lParam);
        return false;
    case WM_CREATE:
    case WM_INITDIALOG:
        OnInit();
        Handled = 1;
        return false;
    case WM_DESTROY:
        OnDestroy();
        return false;
    case WM_DRAWITEM: {
        auto* draw = reinterpret_cast<DRAWITEMSTRUCT*>(lParam);
        OnDrawItem(draw->hwndItem, static_cast<int>(wParam), draw);
        return false;
    }
    case WM_ERASEBKGND:
        OnEraseBackground(reinterpret_cast<HDC>(wParam));
        result = Handled ? 1 : 0;
        return false;
    case WM_SHOWWINDOW:
        if (wParam)
            OnShow(lParam);
        else
            OnHide(lParam);
        return false;
    case WM_KEYDOWN:
        OnKeyDown(wParam, lParam);
        return false;
    case WM_KEYUP:
        OnKeyUp(wParam, lParam);
        return false;
    case WM_CHAR:
        OnChar(static_cast<wchar_t>(LOWORD(wParam)));
        return false;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
        OnMouseDown(SignedX(lParam), SignedY(lParam), message, wParam);
        return false;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case WM_MBUTTONUP:
        OnMouseUp(SignedX(lParam), SignedY(lParam), message, wParam);
        return false;
    case WM_MOUSEMOVE:
        OnMouseMove(SignedX(lParam), SignedY(lParam), wParam);
        return false;
    case WM_MOUSEWHEEL:
        OnMouseWheel(SignedX(lParam), SignedY(lParam), static_cast<short>(HIWORD(wParam)), LOWORD(wParam));
        return false;
    case WM_MOVE:
        OnMove(SignedX(lParam), SignedY(lParam));
        return false;
    case WM_NOTIFY:
        result = OnNotify(reinterpret_cast<NMHDR*>(lParam));
        return false;
    case WM_PAINT:
        OnPaint();
        Handled = 0;
        return false;
    case WM_SIZE:
        OnSize(LOWORD(lParam), HIWORD(lParam), wParam);
        return false;
    case WM_SYSCOMMAND:
        OnSysCommand(wParam & 0xFFF0);
        Handled = 0;
        return false;
    case WM_TIMER:
        CallTimer(wParam);
        return false;
    case WM_CTLCOLORSTATIC: // a brush must be the procedure's own answer, in a dialog too
        result = reinterpret_cast<LRESULT>(OnColorStatic());
        return Handled != 0;
    case WM_CTLCOLORDLG:
        result = reinterpret_cast<LRESULT>(OnColorDialog());
        return Handled != 0;
    default:
        Handled = 0;
        return false;
    }
}

void XWindow::CallCommand(WPARAM wParam, LPARAM lParam) {
    using Answer = void (XWindow::*)();
    static constexpr Answer answers[] = {
        &XWindow::OnOK,  &XWindow::OnCancel, &XWindow::OnAbort,        &XWindow::OnRetry, &XWindow::OnIgnore,
        &XWindow::OnYes, &XWindow::OnNo,     &XWindow::OnCloseCommand, &XWindow::OnHelp,
    };
    static_assert(IDOK == 1 && std::size(answers) == IDHELP);
    const int id = LOWORD(wParam);
    const int notification = HIWORD(wParam);
    if (notification == 0 && id >= IDOK && id <= IDHELP)
        (this->*answers[id - 1])();
    OnCommand(id, reinterpret_cast<HWND>(lParam), notification);
}

void XWindow::CallTimer(std::uint64_t id) {
    XLocked lock(Lock);
    for (clWindowTimer& timer : Timers) {
        CurrentTimer = &timer;
        if (timer.Id == id) {
            OnTimer(timer.Id, timer.Data);
            return;
        }
    }
}

void XWindow::OnActivate(HWND, WORD, WORD) {
    Handled = 0;
}
void XWindow::OnClose() {
    Handled = 0;
}
void XWindow::OnContextMenu(HWND, int, int) {
    Handled = 0;
}
void XWindow::OnCommand(int, HWND, int) {}
void XWindow::OnInit() {
    Handled = 0;
}
void XWindow::OnDestroy() {
    Handled = 0;
}
void XWindow::OnDeactivate(HWND, WORD) {
    Handled = 0;
}
void XWindow::OnDrawItem(HWND, int, DRAWITEMSTRUCT*) {
    Handled = 0;
}
void XWindow::OnEraseBackground(HDC) {
    Handled = 0;
}
void XWindow::OnHide(LPARAM) {
    Handled = 0;
}
void XWindow::OnKeyDown(WPARAM, LPARAM) {
    Handled = 0;
}
void XWindow::OnKeyUp(WPARAM, LPARAM) {
    Handled = 0;
}
void XWindow::OnChar(wchar_t) {
    Handled = 0;
}
void XWindow::OnMouseDown(int, int, UINT, WPARAM) {
    Handled = 0;
}
void XWindow::OnMouseUp(int, int, UINT, WPARAM) {
    Handled = 0;
}
void XWindow::OnMouseMove(int, int, WPARAM) {
    Handled = 0;
}
void XWindow::OnMouseWheel(int, int, int, WORD) {
    Handled = 0;
}
void XWindow::OnMove(int, int) {
    Handled = 0;
}
LRESULT XWindow::OnNotify(NMHDR*) {
    Handled = 0;
    return 0;
}
void XWindow::OnPaint() {
    Handled = 0;
}
void XWindow::OnShow(LPARAM) {
    Handled = 0;
}
void XWindow::OnSize(int, int, WPARAM) {
    Handled = 0;
}
void XWindow::OnSysCommand(WPARAM) {}
void XWindow::OnTimer(std::uint64_t, std::uint64_t) {
    Handled = 0;
}
HBRUSH XWindow::OnColorStatic() {
    Handled = 0;
    return nullptr;
}
HBRUSH XWindow::OnColorDialog() {
    Handled = 0;
    return nullptr;
}
LRESULT XWindow::PreMessage(HWND, UINT, WPARAM, LPARAM, std::uint32_t&) {
    return 0;
}
void XWindow::OnOK() {}
void XWindow::OnCancel() {}
void XWindow::OnAbort() {}
void XWindow::OnCloseCommand() {}
void XWindow::OnHelp() {}
void XWindow::OnIgnore() {}
void XWindow::OnNo() {}
void XWindow::OnRetry() {}
void XWindow::OnYes() {}
