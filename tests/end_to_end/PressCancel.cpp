// Presses Cancel on a running Tonemill once its title shows some progress, and answers Yes.
// Ends with 0 when both were pressed, 1 when that did not come about within a minute.
#include <windows.h>

namespace {

constexpr DWORD limitMs = 60000;
constexpr DWORD stepMs = 20;

struct Search {
    const wchar_t* childText;
    HWND window = nullptr;
    HWND child = nullptr;
};

bool TitleEndsIn(HWND window, const wchar_t* tail) {
    wchar_t title[200] = L"";
    const int count = GetWindowTextW(window, title, 200);
    const int tailCount = lstrlenW(tail);
    return count >= tailCount && lstrcmpW(title + count - tailCount, tail) == 0;
}

BOOL CALLBACK LookAtChild(HWND child, LPARAM argument) {
    Search& search = *reinterpret_cast<Search*>(argument);
    wchar_t text[200] = L"";
    GetWindowTextW(child, text, 200);
    if (lstrcmpW(text, search.childText) != 0)
        return TRUE;
    search.child = child;
    return FALSE;
}

BOOL CALLBACK LookAtWindow(HWND window, LPARAM argument) {
    Search& search = *reinterpret_cast<Search*>(argument);
    if (!IsWindowVisible(window) || !TitleEndsIn(window, L"Zephtone Tonemill"))
        return TRUE;
    EnumChildWindows(window, LookAtChild, argument);
    if (!search.child)
        return TRUE;
    search.window = window;
    return FALSE;
}

// Waits for a window of the program that has a control of this text.
Search WaitFor(const wchar_t* childText, bool converting) {
    for (DWORD waited = 0; waited < limitMs; waited += stepMs) {
        Search search{childText};
        EnumWindows(LookAtWindow, reinterpret_cast<LPARAM>(&search));
        wchar_t title[2] = L"";
        if (search.window)
            GetWindowTextW(search.window, title, 2);
        if (search.window && (!converting || title[0] == L'['))
            return search;
        Sleep(stepMs);
    }
    return Search{childText};
}

} // namespace

int main() {
    const Search form = WaitFor(L"&Cancel", true);
    if (!form.window)
        return 1;
    PostMessageW(form.child, BM_CLICK, 0, 0);
    const Search box = WaitFor(L"Cancel Conversion?", false);
    if (!box.window)
        return 1;
    PostMessageW(box.window, WM_COMMAND, IDYES, 0);
    return 0;
}
