// Making and ending windows, their place and icons, and the dialog that its constructor shows.
#include "../support/HandleReach.h"
#include "Canvas.h"
#include "Recorder.h"
#include "toolkit/XToolkitState.h"

#include <gtest/gtest.h>

namespace {
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
    for (const Row& row : rows) {
        window.MoveTo(row.x, row.y, row.width, row.height);
        EXPECT_EQ(Text(PlaceOf(window.Hwnd)), row.expected);
    }
}

TEST(XWindow, CentreRoundsEachHalfByItself) {
    Recorder window;
    window.CreatePlain();
    window.MoveTo(0, 0, 301, 151);
    window.CentreOnDesktop();
    const RECT desktop = ClientOf(GetDesktopWindow());
    EXPECT_EQ(Text(PlaceOf(window.Hwnd)), Text(RECT{desktop.right / 2 - 150, desktop.bottom / 2 - 75,
                                                    desktop.right / 2 + 151, desktop.bottom / 2 + 76}));
}

TEST(XWindow, ShowsItsIcons) {
    Recorder window;
    const HICON big = MakeIcon(16, 0).Release(), small = MakeIcon(16, 0).Release();
    window.SetIcons(big, small); // without a window they stay the caller's
    EXPECT_FALSE(window.Icon.IsValid());
    window.CreatePlain();
    window.SetIcons(big, small);
    EXPECT_EQ(GetClassLongPtrW(window.Hwnd, GCLP_HICON), reinterpret_cast<ULONG_PTR>(window.Icon.Get()));
    EXPECT_EQ(GetClassLongPtrW(window.Hwnd, GCLP_HICONSM),
              reinterpret_cast<ULONG_PTR>(window.SmallIcon.Get()));
}

TEST(XWindow, ManyWindowsLeaveNothingBehind) {
    const auto cycle = [] {
        Recorder plain, second, dialog;
        plain.CreatePlain();
        second.CreatePlain();
        plain.CreatePlain(); // ends its earlier window, and takes no class that is in use
        EXPECT_TRUE(plain.Hwnd && second.Hwnd);
        EXPECT_EQ(Toolkit().LiveWindows.count, 2);
        for (int i = 0; i < 2; ++i)
            plain.SetIcons(MakeIcon(16, 0).Release(), MakeIcon(16, 0).Release());
        plain.AddTimer(100000);
        second.Destroy();
        second.Destroy();
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
