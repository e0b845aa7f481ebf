// The overwrite form inside its modal loop, with real keys.
#include "forms/review/frmOverwrite.h"

#include "../support/HandleReach.h"
#include "ListForm.h"
#include "resources/ids.h"

#include <gtest/gtest.h>

namespace {

class Overwrite : public ListForm<ID_OVERWRITE_LIST> {
protected:
    void AddRow(const wchar_t* path) {
        clOverwriteItem* row = rows.AddNew();
        row->path = path;
        row->replacementPath = path;
        row->skipFlag = 7; // anything the form has to replace, or to leave
    }
    int Show(std::vector<Step> steps, DWORD limitMs = 20000) {
        steps.insert(steps.begin(), IsOpen);
        const FormDriver driver(std::move(steps), limitMs);
        int result = 1;
        { const frmOverwrite form(result, nullptr, rows, L"MP3"); }
        EXPECT_TRUE(driver.IsDone()) << driver.StepsDone();
        return result;
    }
    XString Decisions() const {
        XString text;
        for (const clOverwriteItem& row : rows)
            text += row.replacementPath + L" " + DecimalText(row.skipFlag) + L"|";
        return text;
    }

    XArray<clOverwriteItem> rows;
};

} // namespace

TEST_F(Overwrite, EndsInThreeWays) {
    struct Row {
        Step end;
        int result;
        const wchar_t* decisions;
        DWORD atLeastMs;
    };
    const wchar_t* overwritten = L"D:\\a.b\\1.mp3 0|D:\\2.x.mp3 0|";
    const wchar_t* untouched = L"D:\\a.b\\1.mp3 7|D:\\2.x.mp3 7|";
    const Row ways[] = {
        {Press(IDOK), 1, overwritten, 0},
        {PressKey(VK_RETURN), 1, overwritten, 0},
        {Press(ID_NO_TO_ALL), 1, L"D:\\a.b\\1.mp3 1|D:\\2.x.mp3 1|", 490},
        {Press(IDCANCEL), 0, untouched, 0},
        {PressKey(VK_ESCAPE), 0, untouched, 0},
        {[] { return PostMessageW(Form(), WM_CLOSE, 0, 0) != 0; }, 0, untouched, 0},
    };
    for (const Row& way : ways) {
        rows.Clear();
        AddRow(L"D:\\a.b\\1.mp3");
        AddRow(L"D:\\2.x.mp3");
        DWORD pressed = 0;
        EXPECT_EQ(Show({[] {
                            EXPECT_EQ(TextOf(Form()), XString(L"Zephtone: Confirm File Replace"));
                            EXPECT_EQ(Cell(0), XString(L"D:\\a.b\\1"));
                            return Cell(1) == L"D:\\2.x" && IsChecked(0) && IsChecked(1);
                        },
                        [&] {
                            pressed = GetTickCount();
                            return way.end();
                        }}),
                  way.result);
        EXPECT_EQ(Decisions(), XString(way.decisions));
        EXPECT_GE(GetTickCount() - pressed, way.atLeastMs);
    }
}

// What is cut off for showing comes back, and goes to the other rows, too.
TEST_F(Overwrite, TakesTheExtensionOfTheFirstRow) {
    struct Row {
        const wchar_t *first, *second, *decisions;
    };
    constexpr Row table[] = {
        {L"D:\\a.mp3", L"D:\\none", L"D:\\a.mp3 0|D:\\none.mp3 0|"},
        {L"D:\\none", L"D:\\also", L"D:\\none 0|D:\\also 0|"},
        {L"D:\\fol.der\\a", L"D:\\fol.der\\b", L"D:\\fol.der\\a 0|D:\\fol.der\\b 0|"},
    };
    for (const Row& row : table) {
        rows.Clear();
        AddRow(row.first);
        AddRow(row.second);
        EXPECT_EQ(Show({Press(IDOK)}), 1);
        EXPECT_EQ(Decisions(), XString(row.decisions));
    }
}

TEST_F(Overwrite, IsDrivenByKeysAlone) {
    for (const wchar_t* path : {L"D:\\1.mp3", L"D:\\2.mp3", L"D:\\3.mp3", L"D:\\4.mp3"})
        AddRow(path);
    const std::vector<Step> steps = {
        PressKey(VK_HOME),   PressKey(VK_DOWN), PressKey(VK_SPACE), [] { return !IsChecked(1); },
        PressKey(VK_F2),
        Type(L"D:\\same"), // unchecked, then edited: both hold
        PressKey(VK_RETURN), IsNotEditing,      PressKey(VK_DOWN),  PressKey(VK_F2),
        Type(L"D:\\lost"),
        PressKey(VK_ESCAPE), // ends the edit alone
        IsNotEditing,        PressKey(VK_F2),   Type(L"D:\\same"),
        Press(IDOK), // with the edit open
    };
    // The second row that is called the same stays as it is.
    EXPECT_EQ(Show(steps), 1);
    EXPECT_EQ(Decisions(), XString(L"D:\\1.mp3 0|D:\\same.mp3 1|D:\\same.mp3 0|D:\\4.mp3 0|"));
}

TEST_F(Overwrite, MenuChangesAllRows) {
    AddRow(L"D:\\1.mp3");
    AddRow(L"D:\\2.mp3");
    std::vector<Step> steps;
    AskRowMenu(steps, 2);
    steps.emplace_back([] { return !IsChecked(0) && !IsChecked(1); });
    AskRowMenu(steps, 1);
    steps.emplace_back([] { return IsChecked(0) && IsChecked(1); });
    AskRowMenu(steps, 3);
    steps.emplace_back([] { return Cell(1).StartsWith(L"D:\\2 - "); });
    steps.push_back(Press(IDOK));
    EXPECT_EQ(Show(steps), 1);
    EXPECT_TRUE(rows[0].replacementPath.StartsWith(L"D:\\1 - "));
    EXPECT_EQ(rows[0].replacementPath.Right(4), XString(L".mp3"));
}

TEST_F(Overwrite, LaysItselfOutAtAnySize) {
    XString path;
    path.SetLength(250);
    path.Replace(L" ", L"wide");
    AddRow(path);
    Show({[&] {
              const RECT window = PlaceOf(Form()); // as far as the screen allows
              EXPECT_NEAR(window.right - window.left, GetSystemMetrics(SM_CXSCREEN) * 9 / 10, 2);
              EXPECT_GE(window.left, 0);
              EXPECT_EQ(CountPlacedControls(Form(), 10, 10), 7U); // the least size; without the hint
              EXPECT_EQ(CountPlacedControls(Form(), 640, 300), 9U);
              EXPECT_EQ(CountPlacedControls(Form(), 1100, 700), 9U);
              return ShowWindow(Form(), SW_MAXIMIZE) != 0;
          },
          [] { return IsZoomed(Form()) && !IsWindowVisible(GetDlgItem(Form(), ID_RESIZE_CORNER)); },
          Press(IDCANCEL)});
}

// One thing too many per row, and this takes minutes.
TEST_F(Overwrite, OpensScrollsAndClosesWithManyRows) {
    for (int i = 0; i < 100000; ++i)
        AddRow(L"D:\\A folder with a name\\A song with a name " + DecimalText(i) + L".mp3");
    const DWORD start = GetTickCount();
    DWORD pressed = 0;
    const auto use = [&] {
        EXPECT_LT(GetTickCount() - start, 10000U);
        SendMessageW(List(), WM_KEYDOWN, VK_END, 1);
        const int top = ListView_GetTopIndex(List());
        SendMessageW(Form(), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
        EXPECT_EQ(ListView_GetTopIndex(List()), top - 1);
        SendWithControl(List(), 'A');
        SendMessageW(List(), WM_KEYDOWN, VK_SPACE, 1);
        pressed = GetTickCount();
        return true;
    };
    EXPECT_EQ(Show({use, Press(IDOK)}, 120000), 1);
    EXPECT_LT(GetTickCount() - pressed, 10000U);
    EXPECT_EQ(rows[0].skipFlag + rows[99999].skipFlag, 2U);
}

TEST_F(Overwrite, FiftyShowingsLeaveNothingBehind) {
    AddRow(L"D:\\1.mp3");
    ExpectNothingLeftBy(50, [&] {
        std::vector<Step> steps = {PressKey(VK_HOME), PressKey(VK_F2), Type(L"D:\\2"), PressKey(VK_RETURN),
                                   IsNotEditing};
        AskRowMenu(steps, 1);
        steps.push_back(Press(IDCANCEL));
        Show(std::move(steps));
    });
}
