// The dialog of naming templates, driven by real clicks, keys and messages.
#include "forms/setup/dlgNaming.h"

#include "../support/HandleReach.h"
#include "FormDriver.h"
#include "host/SettingNames.h"
#include "host/Settings.h"
#include "naming/NamingHelp.h"
#include "resources/ids.h"

#include <gtest/gtest.h>

namespace {

constexpr wchar_t refusal[] = L"Naming has to be formed using dynamic items (such as [title] or [track]) "
                              L"otherwise every track will have the same filename.";

HWND Form() {
    return FindForm(ID_NAMING_TEMPLATE);
}
HWND Edit() {
    return GetDlgItem(Form(), ID_NAMING_TEMPLATE);
}
HWND List() {
    return FindWindowExW(Form(), nullptr, L"ListBox", nullptr);
}
XString Template() {
    return TextOf(Form(), ID_NAMING_TEMPLATE);
}
XString Example() {
    return TextOf(Form(), ID_NAMING_EXAMPLE);
}
bool Press(int button) {
    return Form() && PostMessageW(Form(), WM_COMMAND, button, 0);
}
// Scrolls the row into sight, and lets the system's own press and release reach the list box there.
bool Click(const wchar_t* caption) {
    int row = 0;
    while (row < static_cast<int>(NamingRowCount()) && XString(caption) != NamingRowAt(row).form &&
           XString(caption) != NamingRowAt(row).description)
        ++row;
    SendMessageW(List(), LB_SETTOPINDEX, static_cast<WPARAM>(row), 0);
    RECT item{};
    SendMessageW(List(), LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    const LPARAM place = MAKELPARAM(item.left + 20, (item.top + item.bottom) / 2);
    SendMessageW(List(), WM_LBUTTONDOWN, MK_LBUTTON, place);
    SendMessageW(List(), WM_LBUTTONUP, 0, place);
    return true;
}

using Steps = std::vector<FormDriver::Step>;

// Shows the dialog, runs the steps, and answers how it closed.
int Show(XString& naming, const Steps& steps) {
    const FormDriver driver(steps);
    const dlgNaming form(nullptr, naming);
    EXPECT_TRUE(driver.IsDone());
    return form.result;
}

TEST(NamingDialog, ClickedRowsAreAddedAtTheEnd) {
    const TestSettings settings;
    static constexpr wchar_t whole[] = L"[artist]\\[unique][unique][RIGHT]count,string[]";
    const Steps steps{
        [] { return Example() == L"Lena Orchard"; },
        [] {
            SendMessageW(Edit(), EM_SETSEL, 0, 2);
            return Click(L"\\") && Click(L"[unique]");
        },
        [] {
            EXPECT_EQ(Template(), L"[artist]\\[unique]");
            EXPECT_EQ(Example(), L"Lena Orchard\\5754");
            EXPECT_EQ(GetFocus(), Edit());
            EXPECT_EQ(SendMessageW(Edit(), EM_GETSEL, 0, 0), MAKELONG(17, 17));
            return Click(L"[unique]"); // the same row once more
        },
        [] { return Click(L"Advanced (programmable actions on elements)"); },
        [] { return Click(L"[RIGHT]count,string[]"); },
        [] { return Template() == whole && Press(IDOK); },
    };
    XString naming(L"[artist]");
    EXPECT_EQ(Show(naming, steps), 1);
    EXPECT_EQ(naming, whole);
    EXPECT_EQ(RegReadDword(Setting::uniqueNumber), 0u); // examples take none
}

TEST(NamingDialog, KeysLeadThroughTheListAndABlankAdds) {
    const Steps steps{
        [] { return Form() && GetFocus() == Edit() && PressKey(VK_TAB)(); },
        [] { return GetFocus() == List() && PressKey(VK_DOWN)() && PressKey(VK_DOWN)(); },
        [] { return SendMessageW(List(), LB_GETCURSEL, 0, 0) == 1; },
        [] { return PostMessageW(List(), WM_CHAR, L'[', 0) != 0; },
        [] { return SendMessageW(List(), LB_GETCURSEL, 0, 0) == 2; },
        [] { return Template().IsEmpty() && PressKey(VK_SPACE)(); }, // selecting alone adds nothing
        [] {
            return Template() == L"[album]" && GetFocus() == Edit() && SetFocus(List()) && PressKey(VK_TAB)();
        },
        [] { return GetFocus() == GetDlgItem(Form(), IDOK) && PressKey(VK_TAB)(); },
        [] { return GetFocus() == GetDlgItem(Form(), IDCANCEL) && PressKey(VK_TAB)(); },
        [] { return GetFocus() == Edit() && Press(IDCANCEL); },
    };
    XString naming;
    EXPECT_EQ(Show(naming, steps), 0);
    EXPECT_EQ(naming, L"");
}

TEST(NamingDialog, ExampleFollowsTyping) {
    const Steps steps{
        [] { return Example() == L"Holiday" && (SendMessageW(Edit(), EM_SETSEL, 7, 7), true); },
        [] {
            for (const wchar_t ch : {L':', L'\\', L'[', L'd', L'i', L's', L'c', L']', L'\\'})
                PostMessageW(Edit(), WM_CHAR, static_cast<WPARAM>(ch), 0);
        },
        [] { return Template() == L"[title]:\\[disc]\\" && Example() == L"Holiday;\\1" && Press(IDCANCEL); },
    };
    XString naming(L"[title]");
    EXPECT_EQ(Show(naming, steps), 0);
    EXPECT_EQ(naming, L"[title]");
}

TEST(NamingDialog, RefusesTemplatesThatNameAllFilesAlike) {
    for (const wchar_t* text : {L"", L"[artist]", L"[Title]"}) {
        const FormDriver driver({
            [&] { return Form() && SetWindowTextW(Edit(), text) && Press(IDOK); },
            [] {
                const HWND box = FindBox(refusal);
                return box && GetWindow(box, GW_OWNER) == Form() && TextOf(box) == L"Zephtone" &&
                       PostMessageW(box, WM_COMMAND, IDOK, 0);
            },
            [] { return !FindBoxOf(Form()) && PostMessageW(Form(), WM_CLOSE, 0, 0); },
        });
        XString edited(L"[track]");
        const dlgNaming form(nullptr, edited);
        EXPECT_EQ(form.result, 0);
        EXPECT_EQ(form.naming, text);
        EXPECT_EQ(edited, L"[track]");
    }
}

TEST(NamingDialog, ReadsUpTo9999Characters) {
    XString text(L"[title]");
    text.SetLength(12000);
    XString naming;
    EXPECT_EQ(Show(naming, {[&] { return Form() && SetWindowTextW(Edit(), text) && Press(IDOK); }}), 1);
    EXPECT_EQ(naming.Count(), 9999);
}

TEST(NamingDialog, FiftyShowingsLeaveNothingBehind) {
    ExpectNothingLeftBy(50, [] {
        XString naming(L"[title]");
        Show(naming, {[] { return Form() && Click(L"\\") && Press(IDCANCEL); }});
    });
}

} // namespace
