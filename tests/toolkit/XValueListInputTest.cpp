// What users do with a value list: the control over the selected row, keys, clicks and drags.
#include "Canvas.h"
#include "ValueListForm.h"

#include <algorithm>
#include <utility>

namespace {
class XValueListInputTest : public testing::Test {
protected:
    void SetUp() override { form.Open(); }
    static bool IsFocusIn(HWND window) { return GetFocus() == window || IsChild(window, GetFocus()); }
    XString Shown() { return WindowText(form.list.Control.Window); }
    ValueListForm form;
};

struct ControlCase {
    std::uint32_t kind;
    bool disabled;
    const wchar_t* button;
    const wchar_t* window; // its class; empty for none
    bool hasButton;
};
constexpr ControlCase controlCases[] = {
    {0, false, L"", L"", false},     {0, false, L"Set", L"", true},
    {5, false, L"", L"Edit", false}, {5, false, L"Set", L"Edit", true},
    {5, true, L"Set", L"", false},   {6, false, L"", L"ComboBox", false},
    {8, false, L"Set", L"", true},   {7, false, L"Set", L"ComboBox", true},
};

TEST_F(XValueListInputTest, OpensTheControlOfTheSelectedRow) {
    for (const ControlCase& row : controlCases) {
        form.list.Clear();
        form.Add(row.kind, L"beta", L"", row.button);
        form.Row(0).Disabled = row.disabled;
        form.Row(0).ValueWidth = row.kind == 7 ? 150 : 0;
        form.list.SelectRow(0);
        const auto& control = form.list.Control;
        wchar_t name[20] = L"";
        GetClassNameW(control.Window, name, 20);
        EXPECT_STREQ(name, row.window) << row.kind;
        EXPECT_EQ(control.Button != nullptr, row.hasButton) << row.kind;
        EXPECT_EQ(control.Row, *row.window || row.hasButton ? 0 : -1) << row.kind;
        if (*row.window) {
            EXPECT_TRUE(IsFocusIn(control.Window)) << row.kind;
            EXPECT_EQ(Shown(), XString(row.kind == 7 ? L"Beta" : L"beta")) << row.kind;
        }
        const RECT item = PlaceOf(form.list.List), window = PlaceOf(control.Window);
        const RECT button = PlaceOf(control.Button);
        EXPECT_TRUE(!control.Window || window.left > item.left + ScaleToDpi(140)) << row.kind;
        EXPECT_LE(window.right, row.hasButton ? button.left : item.right) << row.kind;
        EXPECT_LE(button.right, row.kind == 7 ? item.left + ScaleToDpi(160) + 150 : item.right) << row.kind;
    }
    form.list.Clear(); // an edit of several lines grows upward at the lower end
    for (int i = 0; i < 50; ++i)
        form.Add(valueEdit, L"", L"", L"", 3);
    const HWND list = form.list.List;
    for (const int row : {0, 49}) {
        form.list.SelectRow(row);
        const RECT edit = PlaceOf(form.list.Control.Window, list);
        EXPECT_EQ(edit.bottom - edit.top, 3 * ScaleToDpi(21)) << row;
        EXPECT_LE(edit.bottom, ClientOf(list).bottom) << row;
    }
    const RECT place = PlaceOf(list), before = PlaceOf(form.list.Control.Window);
    SetWindowPos(list, nullptr, 0, 0, place.right - place.left - 50, place.bottom - place.top,
                 SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(PlaceOf(form.list.Control.Window).right, before.right - 50);
}

TEST_F(XValueListInputTest, KeepsWhatIsTyped) {
    form.Add(valueEdit, L"old");
    form.Add(valueCombo, L"");
    form.Add(valueDropList, L"no such entry");
    form.list.SelectRow(0);
    form.Type(L"new");
    EXPECT_EQ(form.Row(0).Value, XString(L"new"));
    EXPECT_EQ(form.list.Take(), "change 0;change 0;change 0;"); // all was selected, so typing replaces it
    SetWindowTextW(form.list.Control.Window, L"newer");
    form.list.Take();
    form.list.SelectRow(1);
    EXPECT_EQ(form.Row(0).Value, XString(L"newer"));
    EXPECT_EQ(form.list.Take(), ""); // neither the commit nor the program's own selecting is told
    form.Type(L"b");
    EXPECT_EQ(Shown(), XString(L"beta")); // as typed, then the rest of the first choice
    EXPECT_EQ(form.list.Take(), "change 1;");
    SetFocus(form.after); // a suggestion that nobody took goes
    EXPECT_EQ(Shown(), XString(L"b"));
    SetFocus(form.list.Control.Window);
    SendMessageW(form.list.Control.Window, CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
    form.Type(L"be");
    form.Press(VK_RETURN);
    EXPECT_EQ(form.Row(1).Value, XString(L"beta"));
    EXPECT_EQ(GetFocus(), form.list.List);
    EXPECT_EQ(form.list.Control.Row, -1);
    form.list.SelectRow(2);
    form.list.Take();
    EXPECT_EQ(Shown(), XString(L"Alpha"));
    form.Type(L"B");
    EXPECT_EQ(form.list.Take(), "change 2;");
    EXPECT_EQ(form.Row(2).Value, XString(L"Beta"));
    form.list.Clear();
    EXPECT_EQ(form.list.Control.Window, nullptr);
}

TEST_F(XValueListInputTest, TakesTheEntryThatIsChosenFromAFreeTextBox) {
    form.Add(valueCombo, L"x");
    form.list.SelectRow(0);
    SendMessageW(form.list.Control.Window, CB_SHOWDROPDOWN, TRUE, 0);
    form.Press(VK_DOWN); // in the open list, not from row to row
    EXPECT_EQ(form.Row(0).Value, XString(L"Alpha"));
    EXPECT_EQ(form.list.Take(), "change 0;");
}

TEST_F(XValueListInputTest, KeepsKeysInAnEditOfSeveralLines) {
    form.Add(valueEdit, L"", L"", L"", 3);
    form.Add(valueEdit, L"", L"", L"", 3);
    form.list.SelectRow(0);
    form.Press('A');
    form.Press(VK_RETURN);
    form.Press('B');
    EXPECT_EQ(form.list.Control.Row, 0);
    EXPECT_EQ(form.Row(0).Value.Lower(), XString(L"a\r\nb"));
    const struct {
        int start, end, row;
    } downs[] = {{0, 0, 0}, {3, 4, 0}, {3, 3, 1}}; // on the first line, with a selection, on the last
    for (const auto& down : downs) {
        SendMessageW(form.list.Control.Window, EM_SETSEL, static_cast<WPARAM>(down.start), down.end);
        form.Press(VK_DOWN);
        EXPECT_EQ(form.list.SelectedRow(), down.row) << down.start;
    }
}

TEST_F(XValueListInputTest, SelectsByKeys) {
    for (int i = 0; i < 40; ++i)
        form.Add(valuePlain, L"");
    form.Row(1).Kind = valueEdit;
    SetFocus(form.list.List);
    const int page = ClientOf(form.list.List).bottom / form.list.RowHeight;
    const std::pair<WPARAM, int> steps[] = {
        {VK_DOWN, 0},  {VK_DOWN, 1},    {VK_DOWN, 2},  {VK_UP, 1},    {VK_UP, 0},
        {VK_RIGHT, 0}, {VK_END, 39},    {VK_DOWN, 39}, {VK_NEXT, 39}, {VK_PRIOR, 39 - page},
        {VK_HOME, 0},  {VK_NEXT, page}, {VK_HOME, 0},  {VK_PRIOR, 0}, {VK_UP, -1},
        {VK_UP, -1},   {VK_DOWN, 0},
    };
    for (std::size_t i = 0; i < std::size(steps); ++i) {
        form.Press(steps[i].first);
        EXPECT_EQ(form.list.SelectedRow(), steps[i].second) << "step " << i;
    }
    EXPECT_EQ(form.list.Take(), ""); // keys tell nobody
}

TEST_F(XValueListInputTest, LeadsByTabFromTheValueToTheButtonAndOn) {
    form.Add(valueEdit, L"", L"", L"Set");
    form.Add(valueText, L"", L"", L"Set");
    form.list.SelectRow(0);
    SetFocus(form.before);
    form.Press(VK_TAB);
    EXPECT_EQ(GetFocus(), form.list.Control.Window);
    form.Press(VK_TAB);
    EXPECT_EQ(GetFocus(), form.list.Control.Button);
    form.Press(VK_RETURN);
    EXPECT_EQ(form.list.Take(), "button 0;");
    form.Press(VK_SPACE);
    EXPECT_EQ(form.list.Take(), "button 0;");
    form.Press(VK_DOWN); // to the row without a control
    EXPECT_EQ(GetFocus(), form.list.List);
    form.Press(VK_TAB);
    EXPECT_EQ(GetFocus(), form.list.Control.Button);
    EXPECT_EQ(form.list.Control.Row, 1);
    form.Press(VK_TAB);
    EXPECT_EQ(GetFocus(), form.after);
    form.Press(VK_TAB);
    EXPECT_EQ(GetFocus(), form.before);
}

TEST_F(XValueListInputTest, ChecksByBlankAndByClick) {
    form.Add(valueCheck, L"");
    form.Add(valueRadio, L"3");
    form.Add(valueRadio, L"-3");
    form.Add(valueCheck, L"");
    form.Add(valueCheck, L"", L"", L"Set");
    form.Row(3).Disabled = true;
    form.list.SetIcons({.CheckOn = MakeIcon(16, 0).Release(), .CheckOff = MakeIcon(16, 0).Release()});
    SetFocus(form.list.List);
    for (int row = 0; row < 4; ++row) {
        form.list.SelectRow(row);
        form.Press(VK_SPACE);
        form.Press(VK_SPACE);
    }
    EXPECT_EQ(form.Checks(), "--+--");
    EXPECT_EQ(form.list.Take(), "change 0;change 0;change 1;change 1;change 2;change 2;");
    form.list.SelectRow(-1);
    const struct {
        const char* why;
        int row, x;
        const char* checks;
    } clicks[] = {
        {"on the icon", 0, 25, "+-+--"},        {"on the selected row", 0, 80, "--+--"},
        {"on another row", 1, 80, "--+--"},     {"now it is selected", 1, 90, "-+---"},
        {"disabled", 3, 25, "-+---"},           {"with a button", 4, 80, "-+---"},
        {"the same, selected", 4, 90, "-+---"}, {"the same, on its icon", 4, 25, "-+--+"},
    };
    for (const auto& click : clicks) {
        form.Click(click.row, ScaleToDpi(click.x));
        EXPECT_EQ(form.Checks(), click.checks) << click.why;
    }
    EXPECT_EQ(form.list.SelectedRow(), 4);
    EXPECT_NE(form.list.Take().find("change 4;"), std::string::npos);
}

TEST_F(XValueListInputTest, OpensLinksAndTellsOfDoubleClicks) {
    static XString opened;
    opened.Clear();
    form.list.OpenLink = [](HWND, const wchar_t* target) { opened = target; };
    form.Add(valueLink, L"somewhere");
    form.Add(valuePlain, L"elsewhere");
    for (const int row : {0, 1}) {
        form.Click(row, 30);
        form.Click(row, 30);
    }
    EXPECT_TRUE(form.PumpUntil([&] { return form.list.told.find("double 1;") != std::string::npos; }));
    EXPECT_NE(form.list.told.find("double 0;"), std::string::npos);
    EXPECT_EQ(opened, XString(L"somewhere"));
}

TEST_F(XValueListInputTest, TurnsAwayMessagesInsideItsOwn) {
    form.list.nests = true;
    form.list.TellOfSelection();
    EXPECT_EQ(form.list.Take(), "select -1;");
    form.list.TellOfSelection();
    EXPECT_EQ(form.list.Take(), "select -1;"); // and it is free again
}

class XValueListDragTest : public XValueListInputTest {
protected:
    void Fill(bool banner) {
        form.list.Clear();
        form.list.EnableDragging();
        ASSERT_NE(form.list.DragMessage, 0u);
        form.Add(banner ? valueBanner : valueEdit, L"", L"a");
        for (const wchar_t* caption : {L"b", L"c", L"d"})
            form.Add(valueEdit, L"", caption);
    }
    LRESULT Send(UINT notification, int row) {
        DRAGLISTINFO info{notification, form.list.List, form.ScreenPoint(std::max(row, 0), 30)};
        if (row < 0)
            info.ptCursor = form.ScreenPoint(3, 30, 60); // below the last row
        SendMessageW(form.Hwnd, form.list.DragMessage, form.list.ControlId, reinterpret_cast<LPARAM>(&info));
        return GetWindowLongPtrW(form.Hwnd, DWLP_MSGRESULT);
    }
};

struct DragCase {
    bool banner;
    int from, to;
    LRESULT begun, over;
    const char* order;
    int selected;
};
constexpr DragCase dragCases[] = {
    {false, 0, 2, 1, 3, "bacd", 1}, {false, 3, 0, 1, 3, "dabc", 0}, {false, 1, -1, 1, 3, "acdb", 3},
    {false, 1, 2, 1, 0, "abcd", 0}, {false, 1, 1, 1, 0, "abcd", 0}, {true, 0, 2, 0, 0, "abcd", 0},
    {true, 2, 0, 1, 1, "abcd", 0},  {true, 3, 1, 1, 3, "adbc", 1},  {false, 3, -1, 1, 3, "abcd", 3},
};

TEST_F(XValueListDragTest, MovesTheRowByTheMessagesOfADrag) {
    for (const DragCase& drag : dragCases) {
        Fill(drag.banner);
        form.list.SelectRow(0);
        EXPECT_EQ(Send(DL_BEGINDRAG, drag.from), drag.begun) << drag.from << " " << drag.to;
        if (!drag.begun)
            continue;
        EXPECT_EQ(Send(DL_DRAGGING, drag.to), drag.over) << drag.from << " " << drag.to;
        Send(DL_DROPPED, drag.to);
        EXPECT_EQ(form.Order(), drag.order) << drag.from << " " << drag.to;
        EXPECT_EQ(form.list.SelectedRow(), drag.selected) << drag.from << " " << drag.to;
        EXPECT_EQ(form.list.DragFrom, -1);
    }
}
} // namespace
