// A window that writes down which of its operations ran and with what.
#pragma once

#include "Place.h"
#include "toolkit/XWindow.h"

#include <cstddef>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>

// Whether a second thread would have to wait for the mutex.
inline bool IsTakenForOthers(XMutex& mutex) {
    const auto tryIt = [](void* handle) -> DWORD {
        if (WaitForSingleObject(handle, 0) == WAIT_TIMEOUT)
            return 1;
        ReleaseMutex(handle);
        return 0;
    };
    const XKernelHandle thread(CreateThread(nullptr, 0, tryIt, mutex.handle.Get(), 0, nullptr));
    WaitForSingleObject(thread.Get(), INFINITE);
    DWORD taken = 2;
    GetExitCodeThread(thread.Get(), &taken);
    return taken == 1;
}

// An empty dialog of 120 by 60 dialog units, in memory.
struct EmptyDialog {
    DLGTEMPLATE head{WS_POPUP | WS_CAPTION, 0, 0, 0, 0, 120, 60};
    WORD menuClassTitle[3] = {0, 0, 0};
};
static_assert(offsetof(EmptyDialog, menuClassTitle) == 18);

class Recorder : public XWindow {
public:
    ~Recorder() override { Destroy(); }

    void CreatePlain() { Create(L"title", RECT{10, 20, 210, 120}, WS_POPUP | WS_CAPTION, 0, nullptr, 0); }
    bool CreateEmptyDialog() {
        alignas(DWORD) static const EmptyDialog dialog;
        return ShowModeless(&dialog.head, nullptr);
    }
    std::string Take() { return std::exchange(log, std::string()); }

    std::string log;
    bool leave = false;         // set Handled to 0 in each operation
    LRESULT answer = 0;         // of OnNotify and the brushes
    UINT takeBefore = 0;        // the message that PreMessage handles
    LRESULT answerBefore = 0;   // and its value there
    UINT sendInside = 0;        // a message that each operation sends to its own window
    bool lockedInTimer = false; // for other threads
    std::uint64_t addedInTimer = 0;

    void OnActivate(HWND w, WORD high, WORD how) override { Note("OnActivate", w, high, how); }
    void OnClose() override { Note("OnClose"); }
    void OnContextMenu(HWND w, int x, int y) override { Note("OnContextMenu", w, x, y); }
    void OnCommand(int id, HWND w, int code) override { Note("OnCommand", id, w, code); }
    void OnInit() override { Note("OnInit"); }
    void OnDestroy() override { Note("OnDestroy"); }
    void OnDeactivate(HWND w, WORD high) override { Note("OnDeactivate", w, high); }
    void OnDrawItem(HWND w, int id, DRAWITEMSTRUCT* d) override { Note("OnDrawItem", w, id, d->itemState); }
    void OnEraseBackground(HDC dc) override { Note("OnEraseBackground", dc); }
    void OnHide(LPARAM reason) override { Note("OnHide", reason); }
    void OnKeyDown(WPARAM key, LPARAM flags) override { Note("OnKeyDown", key, flags); }
    void OnKeyUp(WPARAM key, LPARAM flags) override { Note("OnKeyUp", key, flags); }
    void OnChar(wchar_t ch) override { Note("OnChar", static_cast<unsigned>(ch)); }
    void OnMouseDown(int x, int y, UINT m, WPARAM k) override { Note("OnMouseDown", x, y, m, k); }
    void OnMouseUp(int x, int y, UINT m, WPARAM k) override { Note("OnMouseUp", x, y, m, k); }
    void OnMouseMove(int x, int y, WPARAM k) override { Note("OnMouseMove", x, y, k); }
    void OnMouseWheel(int x, int y, int d, WORD k) override { Note("OnMouseWheel", x, y, d, k); }
    void OnMove(int x, int y) override { Note("OnMove", x, y); }
    LRESULT OnNotify(NMHDR* header) override {
        Note("OnNotify", header->code);
        return answer;
    }
    void OnPaint() override { Note("OnPaint"); }
    void OnShow(LPARAM reason) override { Note("OnShow", reason); }
    void OnSize(int w, int h, WPARAM how) override { Note("OnSize", w, h, how); }
    void OnSysCommand(WPARAM command) override { Note("OnSysCommand", command); }
    void OnTimer(std::uint64_t id, std::uint64_t data) override {
        Note("OnTimer", id, data);
        lockedInTimer = IsTakenForOthers(Lock);
        addedInTimer = AddTimer(100000);
    }
    HBRUSH OnColorStatic() override {
        Note("OnColorStatic");
        return reinterpret_cast<HBRUSH>(answer);
    }
    HBRUSH OnColorDialog() override {
        Note("OnColorDialog");
        return reinterpret_cast<HBRUSH>(answer);
    }
    LRESULT PreMessage(HWND, UINT message, WPARAM, LPARAM, std::uint32_t& handled) override {
        handled = message == takeBefore && message != 0;
        return answerBefore;
    }
    void OnOK() override { Note("OnOK"); }
    void OnCancel() override { Note("OnCancel"); }
    void OnAbort() override { Note("OnAbort"); }
    void OnHelp() override { Note("OnHelp"); }
    void OnYes() override { Note("OnYes"); }

private:
    template <class T>
    static long long Number(T value) {
        if constexpr (std::is_pointer_v<T>)
            return reinterpret_cast<LONG_PTR>(value);
        else
            return static_cast<long long>(value);
    }

    template <class... Arguments>
    void Note(const char* name, Arguments... arguments) {
        std::ostringstream line;
        line << name;
        ((line << ' ' << Number(arguments)), ...);
        log += line.str() + ";";
        if (sendInside)
            SendMessageW(Hwnd, sendInside, 0, 0);
        if (leave)
            Handled = 0;
    }
};
