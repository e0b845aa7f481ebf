// A real list control behind its operations: check clicks, keys, both ways of editing, columns.
#include "toolkit/XListView.h"
#include "Recorder.h"

#include <gtest/gtest.h>

namespace {

class LoggingList : public XListView {
public:
    bool CanEditCell(int row, int column) override { return row < 3 && column != 1; }
    void OnItemChanged(int row, int, UINT, UINT, UINT) override { Note(L"changed", row); }
    void OnSelectChanged(int row, int, bool selected) override { Note(selected ? L"select" : L"leave", row); }
    void OnCheckChanged(int row, bool checked) override { Note(checked ? L"check" : L"uncheck", row); }
    bool OnEndLabelEdit(int row, const XString& text) override {
        EXPECT_EQ(GetCellText(row, 0), text.Left(999));
        Note(L"end", row);
        return true;
    }
    void OnLabelEditCancelled(int row) override { Note(L"cancel", row); }
    void OnCellEdited(int row, int column, const XString& text) override {
        Note(text + L" in " + DecimalText(column), row);
    }
    XString Take() { return std::exchange(log, XString()); }

    bool logsChanges = false;

private:
    void Note(const XString& what, int row) {
        if (logsChanges || !what.Equals(L"changed"))
            log += what + L" " + DecimalText(row) + L";";
    }
    XString log;
};

class XListViewTest : public testing::Test, public XWindow {
protected:
    XListViewTest() {
        const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_LISTVIEW_CLASSES};
        InitCommonControlsEx(&controls);
        Create(L"form", RECT{50, 50, 450, 350}, WS_POPUP | WS_VISIBLE, 0, nullptr, 0);
        list.List = CreateWindowExW(0, WC_LISTVIEWW, L"",
                                    WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_EDITLABELS | LVS_SHOWSELALWAYS,
                                    20, 10, 300, 200, Hwnd, nullptr, nullptr, nullptr);
        list.Attach(list.List);
        ListView_SetExtendedListViewStyle(list.List, LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT);
        const XListUpdate update(list);
        list.AddColumn(L"name", 500, LVCFMT_LEFT);
        list.AddColumn(L"from", 70, LVCFMT_LEFT);
        list.AddColumn(L"size", 60, LVCFMT_RIGHT);
        for (int row = 0; row < 4; ++row)
            list.InsertRow(row, L"row" + DecimalText(row), -1);
        SetFocus(list.List);
    }
    ~XListViewTest() override { Destroy(); }
    LRESULT PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                       std::uint32_t& handled) override {
        return list.OnParentMessage(hwnd, message, wParam, lParam, handled);
    }
    // x from the left edge of the list
    void Click(int row, int x, UINT message = WM_LBUTTONDOWN) {
        RECT place{};
        ListView_GetItemRect(list.List, row, &place, LVIR_BOUNDS);
        POINT point{x, (place.top + place.bottom) / 2};
        const LPARAM at = MAKELPARAM(point.x, point.y);
        ClientToScreen(list.List, &point);
        SetCursorPos(point.x, point.y);
        PostMessageW(list.List, WM_LBUTTONUP, 0, at); // the control may wait for it
        SendMessageW(list.List, message, MK_LBUTTON, at);
        MSG posted;
        while (PeekMessageW(&posted, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&posted);
    }
    void Key(WPARAM key, bool control = false) {
        BYTE keys[256] = {};
        keys[VK_CONTROL] = control ? 0x80 : 0;
        SetKeyboardState(keys);
        SendMessageW(GetFocus(), WM_KEYDOWN, key, 0);
        keys[VK_CONTROL] = 0;
        SetKeyboardState(keys);
    }
    // A character per row: o checked, capital or dash when selected.
    XString Rows() const {
        XString rows;
        for (int row = 0; row < list.RowCount(); ++row) {
            const bool isSelected = ListView_GetItemState(list.List, row, LVIS_SELECTED) != 0;
            rows += list.IsChecked(row) ? (isSelected ? L"O" : L"o") : (isSelected ? L"-" : L".");
        }
        return rows;
    }
    void SetRows(const XString& rows) {
        const XListUpdate update(list);
        for (int row = 0; row < rows.Count(); ++row) {
            const wchar_t ch = rows.CharAt(row + 1);
            const bool isSelected = ch == L'O' || ch == L'-';
            ListView_SetItemState(list.List, row, isSelected ? LVIS_SELECTED : 0, LVIS_SELECTED);
            list.SetChecked(row, ch == L'O' || ch == L'o');
        }
    }
    HWND LabelEdit() const { return ListView_GetEditControl(list.List); }

    LoggingList list;
};

} // namespace

TEST_F(XListViewTest, CheckClickGoesForAllSelectedRows) {
    enum Place { asMade, scrolled, reordered };
    struct Row {
        Place place;
        const wchar_t* before;
        int row, x;
        const wchar_t* after;
        UINT message = WM_LBUTTONDOWN;
    };
    const Row rows[] = {
        {asMade, L"---.", 1, 8, L"OOO."},     {asMade, L"-O-o", 1, 8, L"---o"},
        {asMade, L"--..", 3, 8, L"...O"},     {asMade, L"--.o", 3, 20, L"...-"},
        {asMade, L"--..", 1, 22, L".-.."},    {asMade, L"-O..", 0, 8, L"OO..", WM_LBUTTONDBLCLK},
        {scrolled, L"--..", 0, 8, L"-..."},   {reordered, L"--..", 0, 8, L"-..."},
        {reordered, L"--..", 0, 78, L"OO.."}, {reordered, L"--..", 0, 69, L"-..."},
    };
    for (const Row& row : rows) {
        int order[] = {0, 1, 2};
        if (row.place == reordered)
            std::swap(order[0], order[1]);
        ListView_SetColumnOrderArray(list.List, 3, order);
        ListView_Scroll(list.List, row.place == scrolled ? 100 : -1000, 0);
        SetRows(row.before);
        Click(row.row, row.x, row.message);
        EXPECT_EQ(Rows(), XString(row.after)) << row.place << ": " << row.before << " at " << row.x;
        EXPECT_EQ(GetFocus(), list.List);
    }
    ListView_SetExtendedListViewStyle(list.List, LVS_EX_FULLROWSELECT);
    SetRows(L"--..");
    Click(0, 8);
    EXPECT_EQ(Rows().Left(1).FindChar(L'O'), 0);
}

TEST_F(XListViewTest, KeysGoForAllSelectedRows) {
    SetRows(L".---");
    ListView_SetItemState(list.List, 1, LVIS_FOCUSED, LVIS_FOCUSED);
    Key(VK_SPACE);
    EXPECT_EQ(Rows(), XString(L".OOO"));
    ListView_SetItemState(list.List, 0, LVIS_FOCUSED, LVIS_FOCUSED);
    Key(VK_SPACE); // beside the selection
    EXPECT_EQ(Rows(), XString(L"Oooo"));
    list.Take();
    Key('A');
    EXPECT_EQ(list.Take(), XString());
    SetRows(L"....");
    Key('A', true);
    EXPECT_EQ(list.Take(), XString(L"select 0;select 1;select 2;select 3;"));
    EXPECT_EQ(list.GetSelectedRows(), (std::vector<int>{0, 1, 2, 3}));
    for (int row = 4; row < 150; ++row) // enough for the bulk way: it tells the same
        list.InsertRow(row, L"more", -1);
    Key('A', true);
    list.SetChecked(7, true);
    list.Take();
    ListView_SetItemState(list.List, 0, LVIS_FOCUSED, LVIS_FOCUSED);
    Key(VK_SPACE);
    XString log = list.Take();
    EXPECT_TRUE(log.StartsWith(L"check 0;check 1;check 2;check 3;check 4;check 5;check 6;check 8;"));
    EXPECT_EQ(log.Right(10), XString(L"check 149;"));
    Key(VK_DOWN); // the same of rows that are left
    EXPECT_EQ(list.GetSelectedRows(), std::vector<int>{1});
    log = list.Take();
    EXPECT_TRUE(log.StartsWith(L"leave 1;leave 2;leave 3;")) << log.Text();
    EXPECT_TRUE(log.Find(L"leave 149;") > 0 && log.Find(L"select 1;") > 0) << log.Text();
    Key('A', true);
    Click(2, 100);
    EXPECT_EQ(list.GetSelectedRows(), std::vector<int>{2});
}

TEST_F(XListViewTest, TellsChangesUnlessUpdating) {
    list.logsChanges = true;
    const auto change = [this] {
        list.SetChecked(1, !list.IsChecked(1));
        list.SelectRow(2, false);
        list.SelectRow(3, true);
    };
    list.Updating = 1;
    change();
    EXPECT_EQ(list.Take(), XString());
    list.Updating = 0;
    change();
    EXPECT_EQ(list.Take(), XString(L"changed 1;uncheck 1;changed 2;select 2;changed 2;leave 2;"));
    EXPECT_EQ(ListView_GetSelectionMark(list.List), 3);
    EXPECT_EQ(ListView_GetNextItem(list.List, -1, LVNI_FOCUSED), 3);
}

TEST_F(XListViewTest, RenamesByF2) {
    Key(VK_F2); // without a selection mark
    EXPECT_EQ(LabelEdit(), nullptr);
    XString longPath;
    longPath.SetLength(700);
    longPath.Replace(L" ", L"p");
    list.SetCellText(longPath, 3, 0);
    struct Row {
        int row;
        const wchar_t* typed; // null: nothing
        WPARAM key;
        XString text;
        const wchar_t* log;
    };
    const Row rows[] = {
        {1, L"new name", VK_RETURN, L"new name", L"end 1;"},
        {1, L"other", VK_ESCAPE, L"new name", L"cancel 1;"},
        {2, nullptr, VK_RETURN, L"row2", nullptr},
        {2, L"", VK_RETURN, L"row2", L"cancel 2;"},
        {3, nullptr, VK_RETURN, longPath, nullptr},
    };
    for (const Row& row : rows) {
        list.SelectRow(row.row, true);
        list.Take();
        Key(VK_F2);
        ASSERT_NE(LabelEdit(), nullptr) << row.row;
        if (row.typed)
            SetWindowTextW(LabelEdit(), row.typed);
        Key(row.key);
        EXPECT_EQ(LabelEdit(), nullptr);
        EXPECT_EQ(list.GetCellText(row.row, 0), row.text) << row.row;
        const XString log = list.Take();
        if (row.log) { // an unchanged text is an end or a cancel, as the system sees it
            EXPECT_EQ(log, XString(row.log));
        }
    }
    list.SetCellText(longPath, 3, 0);
    Key(VK_F2);
    SendMessageW(LabelEdit(), EM_SETSEL, 700, 700);
    SendMessageW(LabelEdit(), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L" end"));
    Key(VK_RETURN);
    EXPECT_EQ(list.GetCellText(3, 0), longPath + L" end");
    Key(VK_F2); // a control that cuts the text is not to store what is left
    NMLVDISPINFOW cut{{list.List, 0, LVN_ENDLABELEDITW}, {}};
    cut.item.iItem = 3;
    XString start = longPath.Left(259);
    cut.item.pszText = start.Buffer();
    EXPECT_EQ(SendMessageW(Hwnd, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&cut)), FALSE);
    EXPECT_EQ(list.GetCellText(3, 0), longPath + L" end");
    Key(VK_ESCAPE);
    SetWindowLongW(list.List, GWL_STYLE, GetWindowLongW(list.List, GWL_STYLE) & ~LVS_EDITLABELS);
    Key(VK_F2);
    EXPECT_EQ(LabelEdit(), nullptr);
}

TEST_F(XListViewTest, EditsOneCellAfterAnother) {
    list.EditMode = 2;
    list.SelectRow(1, true);
    Key(VK_F2);
    XListView::clValueControl& editor = list.Editor;
    ASSERT_NE(editor.Edit, nullptr);
    const auto standsAt = [&](int row, int column) {
        return editor.Row == row && editor.Column == column && GetFocus() == editor.Edit;
    };
    EXPECT_TRUE(standsAt(1, 0));
    list.Take();
    Key(VK_RETURN);
    EXPECT_EQ(list.Take(), XString()); // unchanged
    EXPECT_TRUE(!editor.Edit && editor.Row == -1 && GetFocus() == list.List);

    Key(VK_F2);
    SetWindowTextW(editor.Edit, L"changed");
    const struct {
        int start, end;
        WPARAM key;
        int row, column;
    } moves[] = {
        {0, 0, VK_RIGHT, 1, 0},                         // the edit's own
        {7, 7, VK_RIGHT, 1, 2},                         // over the column that refuses
        {0, -1, VK_DOWN, 2, 2}, {0, -1, VK_DOWN, 2, 2}, // the last row refuses
        {0, -1, VK_LEFT, 2, 0},
    };
    for (const auto& move : moves) {
        SendMessageW(editor.Edit, EM_SETSEL, static_cast<WPARAM>(move.start), move.end);
        Key(move.key);
        EXPECT_TRUE(standsAt(move.row, move.column)) << editor.Row << ',' << editor.Column;
    }
    EXPECT_TRUE(list.Take().StartsWith(L"changed in 0 1;"));
    SetWindowTextW(editor.Edit, L"lost");
    Key(VK_ESCAPE);
    EXPECT_EQ(list.GetCellText(2, 0), XString(L"row2"));

    list.EditMode = 1;
    Click(0, 100);
    EXPECT_TRUE(standsAt(0, 0));
    SetWindowTextW(editor.Edit, L"clicked away");
    ListView_SetColumnWidth(list.List, 0, 150);
    Click(1, 180);
    EXPECT_EQ(editor.Edit, nullptr);
    EXPECT_EQ(list.GetCellText(0, 0), XString(L"clicked away"));
    Click(0, 100);
    DestroyWindow(list.List); // with an edit open
    EXPECT_TRUE(!list.List && !list.Hwnd && !editor.Edit && !editor.Hwnd);
}
