// Tells where the parts of an open form with a list are, for real clicks, and what the user would see.
// Usage: list_state TITLE BUTTON. Ends with 1 while there is no such form, else prints one line:
//   x and y of the first check box, the height of a row, x and y of the button (screen pixels), a sign
//   per row (x checked, . not), where the focus is (list, edit, other), and the text of a label edit.
#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <string>

namespace {

constexpr int insideBox = 9; // pixels right of the row's left edge

POINT MiddleOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

int ListHeight(HWND list, WPARAM rows) {
    return HIWORD(SendMessageW(list, LVM_APPROXIMATEVIEWRECT, rows, MAKELPARAM(-1, -1)));
}

std::string Checks(HWND list) {
    std::string checks;
    const int rows = ListView_GetItemCount(list);
    for (int row = 0; row < rows; ++row)
        checks += ListView_GetCheckState(list, row) == 1 ? 'x' : '.';
    return checks;
}

} // namespace

int wmain(int argc, wchar_t** argv) {
    const HWND form = argc == 3 ? FindWindowW(nullptr, argv[1]) : nullptr;
    const HWND list = FindWindowExW(form, nullptr, WC_LISTVIEWW, nullptr);
    const HWND button = FindWindowExW(form, nullptr, L"Button", argc == 3 ? argv[2] : nullptr);
    if (!form || !list || !button || !IsWindowVisible(list))
        return 1;
    RECT header{};
    GetWindowRect(ListView_GetHeader(list), &header);
    const int rowHeight = ListHeight(list, 2) - ListHeight(list, 1);
    const POINT press = MiddleOf(button);
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    GetGUIThreadInfo(GetWindowThreadProcessId(form, nullptr), &thread);
    const HWND edit = ListView_GetEditControl(list);
    wchar_t text[300] = L"";
    if (edit)
        SendMessageW(edit, WM_GETTEXT, 300, reinterpret_cast<LPARAM>(text));
    const HWND focus = thread.hwndFocus;
    std::printf("%ld %ld %d %ld %ld %s %s %ls\n", header.left + insideBox, header.bottom + rowHeight / 2,
                rowHeight, press.x, press.y, Checks(list).c_str(),
                focus == list            ? "list"
                : focus && focus == edit ? "edit"
                                         : "other",
                text);
    return 0;
}
