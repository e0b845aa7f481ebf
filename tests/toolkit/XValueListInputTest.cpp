// What users do with a value list: the control over the selected row, keys, clicks and drags.
#include "ValueListForm.h"

#include <algorithm>
#include <array>

namespace {
class XValueListInputTest : public testing::Test {
protected:
    void SetUp() override { form.Open(); }
    void Add(std::uint32_t kind, const wchar_t* value, const wchar_t* button = L"", int lines = 0) {
        clValueRowDesc description;
        description.Kind = kind;
        description.Caption = L"row";
        description.Value = value;
        description.ButtonText = button;
        description.Lines = lines;
        description.CheckX = 20;
        description.OnChange = NoteChange;
        description.OnButton = NoteButton;
        for (const wchar_t* choice : {L"Alpha", L"Beta", L"Bella"})
            description.Choices.AddString(choice);
        form.list.AddRow(description);
    }
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
    {0, false, L"", L"", false},   {0, false, L"Set", L"", true},       {0, true, L"Set", L"", false},
    {3, false, L"", L"", false},   {5, false, L"", L"Edit", false},     {5, false, L"Set", L"Edit", true},
    {5, true, L"Set", L"", false}, {6, false, L"", L"ComboBox", false}, {7, false, L"Set", L"ComboBox", true},
    {8, false, L"Set", L"", true},
};

TEST_F(XValueListInputTest, OpensTheControlOfTheSelectedRow) {
    for (const ControlCase& row : controlCases) {
        form.list.Clear();
        Add(row.kind, L"beta", row.button);
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
        RECT item{}, window{}, button{};
        SendMessageW(form.list.List, LB_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&item));
        MapWindowPoints(form.list.List, nullptr, reinterpret_cast<POINT*>(&item), 2);
        GetWindowRect(control.Window, &window);
        GetWindowRect(control.Button, &button);
        const LONG valueX = item.left + ScaleToDpi(150);
        const LONG end = row.kind == 7 ? valueX + 150 : item.right;
        EXPECT_EQ(button.right, row.hasButton ? end : 0) << row.kind;
        EXPECT_EQ(window.left, *row.window ? valueX - 5 : 0) << row.kind;
        const LONG windowEnd = row.hasButton ? button.left - (row.kind == 7 ? 5 : 1) : end - 1;
        EXPECT_EQ(window.right, *row.window ? windowEnd : 0) << row.kind;
    }
    form.list.Clear(); // an edit of several lines grows upward at the lower end
    for (int i = 0; i < 50; ++i)
        Add(valueEdit, L"", L"", 3);
    for (const int row : {0, 49}) {
        form.list.SelectRow(row);
        RECT edit{}, client{};
        GetWindowRect(form.list.Control.Window, &edit);
        GetClientRect(form.list.List, &client);
        MapWindowPoints(nullptr, form.list.List, reinterpret_cast<POINT*>(&edit), 2);
        EXPECT_EQ(edit.bottom - edit.top, 3 * ScaleToDpi(21)) << row;
        EXPECT_LE(edit.bottom, client.bottom) << row;
    }
}

TEST_F(XValueListInputTest, KeepsWhatIsTyped) {
    Add(valueEdit, L"old");
    Add(valueCombo, L"");
    Add(valueDropList, L"no such entry");
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
    Add(valueCombo, L"x");
    form.list.SelectRow(0);
    SendMessageW(form.list.Control.Window, CB_SHOWDROPDOWN, TRUE, 0);
    form.Press(VK_DOWN); // in the open list, not from row to row
    form.Press(VK_DOWN);
    EXPECT_EQ(form.Row(0).Value, XString(L"Beta"));
    EXPECT_EQ(form.list.Take(), "change 0;change 0;");
    form.Press(VK_RETURN);
    EXPECT_EQ(form.Row(0).Value, XString(L"Beta"));
}

TEST_F(XValueListInputTest, KeepsKeysInAnEditOfSeveralLines) {
    Add(valueEdit, L"", L"", 3);
    Add(valueEdit, L"", L"", 3);
    form.list.SelectRow(0);
    form.Press('A');
    form.Press(VK_RETURN);
    form.Press('B');
    EXPECT_EQ(form.list.Control.Row, 0);
    EXPECT_EQ(form.Row(0).Value.Lower(), XString(L"a\r\nb"));
    SendMessageW(form.list.Control.Window, EM_SETSEL, 0, 0);
    form.Press(VK_DOWN); // to the second line
    EXPECT_EQ(form.list.SelectedRow(), 0);
    SendMessageW(form.list.Control.Window, EM_SETSEL, 0, -1);
    form.Press(VK_DOWN);
    EXPECT_EQ(form.list.SelectedRow(), 0);
    SendMessageW(form.list.Control.Window, EM_SETSEL, 3, 3);
    form.Press(VK_DOWN);
    EXPECT_EQ(form.list.SelectedRow(), 1);
    form.Press(VK_UP);
    EXPECT_EQ(form.list.SelectedRow(), 0);
}

TEST_F(XValueListInputTest, SelectsByKeys) {
    for (int i = 0; i < 40; ++i)
        Add(valuePlain, L"");
    form.Row(1).Kind = valueEdit;
    SetFocus(form.list.List);
    RECT client{};
    GetClientRect(form.list.List, &client);
    const int page = client.bottom / form.list.RowHeight;
    const struct {
        WPARAM key;
        int row;
    } steps[] = {
        {VK_DOWN, 0},  {VK_DOWN, 1},    {VK_DOWN, 2},  {VK_UP, 1},    {VK_UP, 0},
        {VK_RIGHT, 0}, {VK_END, 39},    {VK_DOWN, 39}, {VK_NEXT, 39}, {VK_PRIOR, 39 - page},
        {VK_HOME, 0},  {VK_NEXT, page}, {VK_HOME, 0},  {VK_PRIOR, 0}, {VK_UP, -1},
        {VK_UP, -1},   {VK_DOWN, 0},
    };
    for (std::size_t i = 0; i < std::size(steps); ++i) {
        form.Press(steps[i].key);
        EXPECT_EQ(form.list.SelectedRow(), steps[i].row) << "step " << i;
    }
    EXPECT_EQ(form.list.Take(), ""); // keys tell nobody
}

TEST_F(XValueListInputTest, LeadsByTabFromTheValueToTheButtonAndOn) {
    Add(valueEdit, L"", L"Set");
    Add(valueText, L"", L"Set");
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
    Add(valueCheck, L"");
    Add(valueRadio, L"3");
    Add(valueRadio, L"-3");
    Add(valueCheck, L"");
    Add(valueCheck, L"", L"Set");
    form.Row(3).Disabled = true;
    clValueIcons icons;
    icons.CheckOff =
        CreateIcon(nullptr, 16, 16, 1, 1, std::array<BYTE, 32>{}.data(), std::array<BYTE, 32>{}.data());
    icons.CheckOn = CopyIcon(icons.CheckOff);
    form.list.SetIcons(icons);
    const auto states = [this] {
        std::string states;
        for (int row = 0; row < 5; ++row)
            states += form.list.IsChecked(row) ? '+' : '-';
        return states;
    };
    SetFocus(form.list.List);
    for (int row = 0; row < 4; ++row) {
        form.list.SelectRow(row);
        form.Press(VK_SPACE);
        form.Press(VK_SPACE);
    }
    EXPECT_EQ(states(), "--+--");
    EXPECT_EQ(form.list.Take(), "change 0;change 0;change 1;change 1;change 2;change 2;");
    form.list.SelectRow(-1);
    const struct {
        int row, x;
        const char *states, *told;
    } clicks[] = {
        {0, 25, "+-+--", "change 0;"},                       // the icon
        {0, 80, "--+--", "change 0;"},                       // the selected row anywhere
        {1, 80, "--+--", ""},                                // another row is selected first
        {1, 90, "-+---", "change 1;"}, {3, 25, "-+---", ""}, // disabled
        {3, 80, "-+---", ""},          {4, 80, "-+---", ""},
        {4, 90, "-+---", ""}, // the rest of this one is for the button
        {4, 25, "-+--+", "change 4;"},
    };
    for (const auto& click : clicks) {
        form.Click(click.row, ScaleToDpi(click.x));
        EXPECT_EQ(form.list.SelectedRow(), click.row);
        EXPECT_EQ(states(), click.states) << click.row << " at " << click.x;
        const std::string told = form.list.Take(); // and of the selection
        EXPECT_EQ(told.substr(0, told.find("select")), click.told) << click.row << " at " << click.x;
    }
}

TEST_F(XValueListInputTest, SelectsByTheRightButtonBeforeTheMenu) {
    for (int i = 0; i < 3; ++i)
        Add(valueText, L"", L"Set");
    form.list.EnableDragging();
    form.MoveMouse(form.ScreenPoint(1, 30));
    form.Mouse(MOUSEEVENTF_RIGHTDOWN);
    form.Mouse(MOUSEEVENTF_RIGHTUP);
    EXPECT_TRUE(form.PumpUntil([&] { return form.list.told == "select 1;menu 1;"; })) << form.list.told;
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(form.list.DragFrom, -1);
    form.list.Take();
    SendMessageW(form.list.List, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(form.list.List), -1);
    EXPECT_EQ(form.list.Take(), "menu 1;");
}

TEST_F(XValueListInputTest, OpensLinksAndTellsOfDoubleClicks) {
    static XString opened;
    opened.Clear();
    form.list.OpenLink = [](HWND, const wchar_t* target) { opened = target; };
    Add(valueLink, L"somewhere");
    Add(valuePlain, L"elsewhere");
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

TEST_F(XValueListInputTest, LetsAButtonRemoveItsOwnRow) {
    clValueRowDesc description;
    description.Kind = valueEdit;
    description.ButtonText = L"Remove";
    description.OnButton = [](XValueList& list, int row) { list.RemoveRow(row); };
    form.list.AddRow(description);
    form.list.AddRow(description);
    form.list.SelectRow(0);
    SendMessageW(form.list.Control.Button, BM_CLICK, 0, 0);
    form.Pump();
    EXPECT_EQ(form.list.RowCount(), 1);
    EXPECT_EQ(form.list.Control.Row, 0);
}

class XValueListDragTest : public XValueListInputTest {
protected:
    void Fill(bool banner) {
        form.list.Clear();
        form.list.EnableDragging();
        ASSERT_NE(form.list.DragMessage, 0u);
        for (int row = 0; row < 4; ++row) {
            Add(banner && row == 0 ? valueBanner : valueEdit, L"");
            form.Row(row).Caption = std::array{L"a", L"b", L"c", L"d"}[static_cast<std::size_t>(row)];
        }
    }
    LRESULT Send(UINT notification, int row) {
        DRAGLISTINFO info{notification, form.list.List, form.ScreenPoint(std::max(row, 0), 30)};
        if (row < 0)
            info.ptCursor = form.ScreenPoint(3, 30, 60); // below the last row
        SendMessageW(form.Hwnd, form.list.DragMessage, form.list.ControlId, reinterpret_cast<LPARAM>(&info));
        return GetWindowLongPtrW(form.Hwnd, DWLP_MSGRESULT);
    }
    std::string Order() {
        std::string order;
        for (clValueRow& row : form.list.Rows)
            order += static_cast<char>(row.Caption.CharAt(1));
        return order;
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
        EXPECT_EQ(Order(), drag.order) << drag.from << " " << drag.to;
        EXPECT_EQ(form.list.SelectedRow(), drag.selected) << drag.from << " " << drag.to;
        EXPECT_EQ(form.list.DragFrom, -1);
    }
    Fill(false);
    Send(DL_BEGINDRAG, 0);
    Send(DL_DRAGGING, 2);
    Send(DL_CANCELDRAG, 2);
    Send(DL_DROPPED, 2);
    EXPECT_EQ(Order(), "abcd");
}

TEST_F(XValueListDragTest, KeepsTypedTextWhenTheMouseDragsItsRow) {
    Fill(false);
    form.Click(0, 30);
    ASSERT_TRUE(form.PumpUntil([&] { return form.list.Control.Row == 0; }));
    form.Type(L"x");
    form.MoveMouse(form.ScreenPoint(0, 60)); // elsewhere, or it were a double click
    form.Mouse(MOUSEEVENTF_LEFTDOWN);
    for (const int row : {1, 2, 3}) {
        form.MoveMouse(form.ScreenPoint(row, 30));
        form.PumpUntil([&] { return form.list.DragAllowed == (row > 1); });
    }
    form.Mouse(MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(form.PumpUntil([&] { return Order() == "bcad"; })) << Order();
    EXPECT_EQ(form.Row(2).Value, XString(L"x"));
    EXPECT_EQ(form.list.SelectedRow(), 2);
    EXPECT_EQ(form.list.Control.Row, 2);
}
} // namespace
