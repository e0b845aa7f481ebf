// Timer, search of windows and settings for the tests of forms.
#include "FormDriver.h"

#include "host/Settings.h"

#include <gtest/gtest.h>

namespace {

constexpr wchar_t testKey[] = L"Software\\TonemillFormTests";
FormDriver* driver = nullptr;

struct Search {
    std::function<bool(HWND)> matches;
    HWND found = nullptr;
};

BOOL CALLBACK TryWindow(HWND window, LPARAM parameter) {
    auto* search = reinterpret_cast<Search*>(parameter);
    if (!search->matches(window))
        return TRUE;
    search->found = window;
    return FALSE;
}

HWND FindTop(std::function<bool(HWND)> matches) {
    Search search{std::move(matches)};
    EnumThreadWindows(GetCurrentThreadId(), TryWindow, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

XString ClassOf(HWND window) {
    wchar_t name[16] = L"";
    GetClassNameW(window, name, 16);
    return name;
}

} // namespace

TestSettings::TestSettings() {
    RegDeleteTree(HKEY_CURRENT_USER, L"Software", L"TonemillFormTests");
    SetSettingsRoot(HKEY_CURRENT_USER, testKey);
}

TestSettings::~TestSettings() {
    RegDeleteTree(HKEY_CURRENT_USER, L"Software", L"TonemillFormTests");
}

FormDriver::FormDriver(std::vector<Step> steps, DWORD limitMs)
    : steps(std::move(steps)), start(GetTickCount()), limitMs(limitMs),
      timer(SetTimer(nullptr, 0, 10, OnTimer)) {
    driver = this;
}

FormDriver::~FormDriver() {
    KillTimer(nullptr, timer);
    driver = nullptr;
}

void FormDriver::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (driver && !driver->isInStep)
        driver->TryStep();
}

void FormDriver::TryStep() {
    if (GetTickCount() - start > limitMs) {
        GiveUp();
        return;
    }
    if (IsDone())
        return;
    isInStep = true;
    const std::size_t step = next; // a step may run a loop of its own
    if (steps[step]())
        next = step + 1;
    isInStep = false;
}

// Ends whatever is open, so that the failure is reported and does not hang.
void FormDriver::GiveUp() {
    ADD_FAILURE() << "step " << next << " did not come about in " << limitMs << " ms";
    start = GetTickCount();
    EndMenu();
    while (const HWND open = FindTop([](HWND window) {
               return ClassOf(window) == L"#32770" && GetPropW(window, L"tm-ended") == nullptr;
           })) {
        SetPropW(open, L"tm-ended", open);
        EndDialog(open, IDCANCEL);
    }
}

HWND FindForm(int controlId) {
    return FindTop([controlId](HWND window) { return GetDlgItem(window, controlId) != nullptr; });
}

HWND FindBox(const XString& text) {
    return FindTop([text](HWND window) { return IsWindowVisible(window) && TextOf(window, 0xFFFF) == text; });
}

HWND FindBoxOf(HWND form) {
    return FindTop([form](HWND window) {
        return IsWindowVisible(window) && form && GetWindow(window, GW_OWNER) == form &&
               GetDlgItem(window, 0xFFFF);
    });
}

bool IsMenuOpen() {
    return FindTop([](HWND window) { return ClassOf(window) == L"#32768" && IsWindowVisible(window); });
}

FormDriver::Step AnswerBox(const XString& text, int button) {
    return [=] {
        const HWND box = FindBox(text);
        return box && PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
    };
}

FormDriver::Step PressKey(WPARAM key) {
    return [key] {
        const HWND focus = GetFocus();
        return focus && PostMessageW(focus, WM_KEYDOWN, key, 1) &&
               PostMessageW(focus, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    };
}

void AskMenu(std::vector<FormDriver::Step>& steps, const std::function<HWND()>& control, int downs) {
    const auto key = [control](WPARAM code) { // a menu takes those of its owner
        return PostMessageW(GetParent(control()), WM_KEYDOWN, code, 0) != 0;
    };
    steps.emplace_back([control] {
        return PostMessageW(control(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control()),
                            MAKELPARAM(-1, -1)) != 0;
    });
    steps.emplace_back([downs, key] {
        if (!IsMenuOpen())
            return false;
        for (int i = 0; i < downs; ++i)
            key(VK_DOWN);
        return key(VK_RETURN);
    });
    steps.emplace_back([key] {
        if (IsMenuOpen()) // the command is disabled
            key(VK_ESCAPE);
        return !IsMenuOpen();
    });
}

void SendWithControl(HWND window, WPARAM key) {
    BYTE keys[256] = {};
    keys[VK_CONTROL] = 0x80;
    SetKeyboardState(keys);
    SendMessageW(window, WM_KEYDOWN, key, 1);
    keys[VK_CONTROL] = 0;
    SetKeyboardState(keys);
}

std::size_t CountPlacedControls(HWND form, int width, int height, HWND except) {
    SetWindowPos(form, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
    const RECT client = ClientOf(form);
    std::vector<RECT> seen;
    for (HWND child = GetWindow(form, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (!IsWindowVisible(child) || child == except)
            continue;
        const RECT own = PlaceOf(child, form);
        RECT common{};
        EXPECT_TRUE(IntersectRect(&common, &own, &client) && EqualRect(&common, &own))
            << GetDlgCtrlID(child) << " at " << width;
        for (const RECT& other : seen)
            EXPECT_FALSE(IntersectRect(&common, &own, &other)) << GetDlgCtrlID(child) << " at " << width;
        seen.push_back(own);
    }
    return seen.size();
}

XString TextOf(HWND window) {
    wchar_t text[512] = L"";
    GetWindowTextW(window, text, 512);
    return text;
}

XString TextOf(HWND form, int controlId) {
    const HWND control = GetDlgItem(form, controlId);
    return control ? TextOf(control) : XString();
}
