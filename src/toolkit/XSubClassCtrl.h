// The base of all controls with behaviour of their own: it sees the messages of an existing control.
#pragma once

#include <windows.h>

#include <cstdint>

// All messages of all subclassed controls are serialised across threads by one process-wide lock,
// the control's previous procedure included; the thread that holds it may re-enter.
class XSubClassCtrl {
public:
    XSubClassCtrl();
    virtual ~XSubClassCtrl(); // detaches
    XSubClassCtrl(const XSubClassCtrl&) = delete;
    XSubClassCtrl& operator=(const XSubClassCtrl&) = delete;

    // Returns the message's result. `handled` is 0 on entry; left at 0, the message goes on to the
    // control's previous procedure and the returned value is not used.
    virtual LRESULT OnMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled);

    // Detaches first; null does no more than that. Uses the control's GWLP_USERDATA.
    void Attach(HWND hwnd);
    // Is to be called while the control still exists, at the latest in its owner's OnDestroy.
    void Detach();

    WNDPROC OldProc = nullptr;
    HWND Hwnd = nullptr; // null when detached
};
