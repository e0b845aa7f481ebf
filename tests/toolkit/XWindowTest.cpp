// Making and ending windows, their place and icons, and the dialog that its constructor shows.
#include "../support/HandleReach.h"
#include "Recorder.h"
#include "toolkit/XToolkitState.h"

#include <gtest/gtest.h>

namespace {
RECT Place(HWND hwnd) {
    RECT r{};
    GetWindowRect(hwnd, &r);
    return r;
}
std::string Text(const RECT& r) {
    std::ostringstream text;
    text << r.left << ' ' << r.top << ' ' << r.right - r.left << ' ' << r.bottom - r.top;
    return text.str();
}
bool IsClass(const wchar_t* name) {
    WNDCLASSEXW record{};
    record.cbSize = sizeof(record);
    return GetClassInfoExW(GetModuleHandleW(nullptr), name, &record);
}
HICON NewIcon() {
    const BYTE bits[32] = {};
    return CreateIcon(GetModuleHandleW(nullptr), 16, 16, 1, 1, bits, bits);
}
bool IsIcon(HICON icon) {
    ICONINFO info{};
    if (!GetIconInfo(icon, &info))
        return false;
    DeleteObject(info.hbmColor);
    DeleteObject(info.hbmMask);
    return true;
}

TEST(XWindow, ClassNumbersNeverFall) {
    Toolkit().WindowClassCounter = 0;
    Recorder first;
    Recorder second;
    first.CreatePlain();
    second.CreatePlain();
    EXPECT_EQ(first.ClassName, L"XWnd0");
    EXPECT_EQ(second.ClassName, L"XWnd1");
    first.Destroy();
    EXPECT_TRUE(first.ClassName.IsEmpty());
    EXPECT_FALSE(IsClass(L"XWnd0"));
    EXPECT_TRUE(IsClass(L"XWnd1"));
    first.CreatePlain();
    EXPECT_EQ(first.ClassName, L"XWnd2");
    second.CreatePlain(); // ends its earlier window
    EXPECT_FALSE(IsClass(L"XWnd1"));
    EXPECT_EQ(Toolkit().LiveWindows.count, 2);
    second.Destroy();
    second.Destroy();
    EXPECT_EQ(Toolkit().LiveWindows.count, 1);
    EXPECT_EQ(Text(Place(first.Hwnd)), "10 20 200 100");
}

TEST(XWindow, MoveToKeepsWhatItIsToldTo) {
    struct Row {
        int x, y, width, height;
        const char* expected;
    };
    constexpr int keep = keepPosition;
    constexpr Row rows[] = {
        {keep, keep, keep, keep, "10 20 200 100"}, {30, keep, keep, keep, "30 20 200 100"},
        {keep, 40, keep, keep, "30 40 200 100"},   {keep, keep, 250, keep, "30 40 250 100"},
        {keep, keep, keep, 150, "30 40 250 150"},  {-5, 0, 220, 110, "-5 0 220 110"},
    };
    Recorder window;
    window.MoveTo(1, 2, 3, 4);
    EXPECT_EQ(window.Hwnd, nullptr);
    window.CreatePlain();
    Recorder child;
    child.Create(L"", RECT{3, 4, 63, 34}, WS_CHILD, 0, window.Hwnd, 0);
    const RECT before = Place(child.Hwnd);
    child.MoveTo(keep, keep, keep, keep);
    EXPECT_EQ(Text(Place(child.Hwnd)), Text(before));
    for (const Row& row : rows) {
        window.MoveTo(row.x, row.y, row.width, row.height);
        EXPECT_EQ(Text(Place(window.Hwnd)), row.expected);
    }
}

TEST(XWindow, CentreRoundsEachHalfByItself) {
    Recorder window;
    window.CreatePlain();
    window.MoveTo(0, 0, 301, 151);
    window.CentreOnDesktop();
    RECT desktop{};
    GetClientRect(GetDesktopWindow(), &desktop);
    EXPECT_EQ(Text(Place(window.Hwnd)), Text(RECT{desktop.right / 2 - 150, desktop.bottom / 2 - 75,
                                                  desktop.right / 2 + 151, desktop.bottom / 2 + 76}));
}

TEST(XWindow, IconsAreTakenOverAndEndWithTheObject) {
    HICON big = NewIcon();
    HICON small = NewIcon();
    HICON keptBig = nullptr;
    HICON keptSmall = nullptr;
    {
        Recorder window;
        window.SetIcons(big, small);
        EXPECT_TRUE(IsIcon(big) && IsIcon(small)) << "without a window they stay the caller's";
        window.CreatePlain();
        window.SetIcons(big, small);
        EXPECT_FALSE(IsIcon(big) || IsIcon(small));
        keptBig = window.Icon.Get();
        keptSmall = window.SmallIcon.Get();
        EXPECT_TRUE(IsIcon(keptBig) && IsIcon(keptSmall));
        EXPECT_EQ(GetClassLongPtrW(window.Hwnd, GCLP_HICON), reinterpret_cast<ULONG_PTR>(keptBig));
        EXPECT_EQ(GetClassLongPtrW(window.Hwnd, GCLP_HICONSM), reinterpret_cast<ULONG_PTR>(keptSmall));
        const HICON replaced = keptBig;
        window.SetIcons(NewIcon(), NewIcon());
        EXPECT_FALSE(IsIcon(replaced));
        keptBig = window.Icon.Get();
        keptSmall = window.SmallIcon.Get();
    }
    EXPECT_FALSE(IsIcon(keptBig) || IsIcon(keptSmall));
}

class UnmadeForm final : public XWindow {
public:
    explicit UnmadeForm(INT_PTR& result) { result = ShowModal(31999, nullptr); }
};

TEST(XWindow, AMissingDialogIsNoWindow) {
    INT_PTR result = 99;
    const UnmadeForm form(result);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(form.Control(1), nullptr);
    EXPECT_EQ(Toolkit().LiveWindows.count, 0);
}

TEST(XWindow, ManyWindowsLeaveNothingBehind) {
    const auto cycle = [] {
        Recorder plain;
        plain.CreatePlain();
        plain.SetIcons(NewIcon(), NewIcon());
        plain.AddTimer(100000);
        Recorder dialog;
        EXPECT_TRUE(dialog.CreateEmptyDialog());
    };
    for (int i = 0; i < 20; ++i) // the system's own caches fill first
        cycle();
    const std::uint32_t firstClass = Toolkit().WindowClassCounter;
    ExpectNothingLeftBy(200, cycle);
    EXPECT_EQ(Toolkit().LiveWindows.count, 0);
    for (std::uint32_t n = firstClass; n < Toolkit().WindowClassCounter; ++n)
        EXPECT_FALSE(IsClass(XString(L"XWnd") + UnsignedText(n)));
}

TEST(ScaleToDpi, TruncatesTowardZero) {
    struct Row {
        std::uint32_t dpi;
        int value, expected;
    };
    constexpr Row rows[] = {{120, 96, 120}, {96, 13, 13}, {120, 13, 16}, {144, -3, -4}, {120, 0, 0}};
    for (const Row& row : rows) {
        Toolkit().ScreenDpi = row.dpi;
        EXPECT_EQ(ScaleToDpi(row.value), row.expected) << row.dpi << ' ' << row.value;
    }
    Toolkit().ScreenDpi = 0xFFFFFFFF;
    const HDC screen = GetDC(nullptr);
    EXPECT_EQ(ScaleToDpi(96), GetDeviceCaps(screen, LOGPIXELSY));
    ReleaseDC(nullptr, screen);
}
} // namespace
