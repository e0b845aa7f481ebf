// Real tab and tree controls behind their operations.
#include "Recorder.h"
#include "toolkit/XTabPage.h"
#include "toolkit/XTreeView.h"

#include <gtest/gtest.h>

namespace {

class LoggingTabs : public XTabPage {
public:
    void OnTabSelected(int index) override { log += L"selected " + DecimalText(index) + L";"; }
    void OnTabChanging(int index) override { log += L"changing " + DecimalText(index) + L";"; }
    XString log;
};

class LoggingTree : public XTreeView {
public:
    void OnExpanding(HTREEITEM, bool open, bool& veto) override {
        log += open ? L"opening;" : L"closing;";
        veto = refuses;
    }
    void OnExpanded(HTREEITEM, bool open) override { log += open ? L"opened;" : L"closed;"; }
    void OnSelected() override { log += L"selected;"; }
    void OnSelecting(HTREEITEM item, bool& veto) override {
        log += L"selecting " + GetItemText(item) + L";";
        veto = refuses;
    }
    void OnClick() override { log += L"click;"; }
    void OnDoubleClick() override { log += L"double;"; }
    void OnRightClick() override { log += L"right;"; }
    void OnRightDoubleClick() override { log += L"right double;"; }
    void OnContextMenu(int x, int y) override { asked = POINT{x, y}; }
    XString Take() {
        XString taken = log;
        log.Clear();
        return taken;
    }
    XString log;
    bool refuses = false;
    POINT asked{};
};

class ControlsForm : public XWindow {
public:
    ~ControlsForm() override { Destroy(); }
    LRESULT PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                       std::uint32_t& handled) override {
        const LRESULT result = tabs.OnParentMessage(hwnd, message, wParam, lParam, handled);
        return handled ? result : tree.OnParentMessage(hwnd, message, wParam, lParam, handled);
    }
    LoggingTabs tabs;
    LoggingTree tree;
};

class XTabAndTreeTest : public testing::Test {
protected:
    void SetUp() override {
        const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_TAB_CLASSES | ICC_TREEVIEW_CLASSES};
        InitCommonControlsEx(&controls);
        form.Create(L"form", RECT{50, 50, 450, 350}, WS_POPUP | WS_VISIBLE, 0, nullptr, 0);
        tabs.Tabs = MakeChild(WC_TABCONTROLW, 1037, 0);
        tree.Tree = MakeChild(WC_TREEVIEWW, 1034, TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT);
        ASSERT_TRUE(tabs.Tabs && tree.Tree);
    }
    HWND MakeChild(const wchar_t* name, int id, DWORD style) {
        return CreateWindowExW(0, name, L"", style | WS_CHILD | WS_VISIBLE, 20, 10, 300, 200, form.Hwnd,
                               reinterpret_cast<HMENU>(INT_PTR{id}), nullptr, nullptr);
    }
    bool IsShown(HWND page) { return (GetWindowLongPtrW(page, GWL_STYLE) & WS_VISIBLE) != 0; }
    LRESULT Notify(HWND from, UINT code) {
        NMTVKEYDOWN header{{from, 0, code}, VK_SPACE, 0};
        return SendMessageW(form.Hwnd, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
    }
    POINT MiddleOf(HTREEITEM item) { // in screen pixels
        RECT r{};
        EXPECT_TRUE(TreeView_GetItemRect(tree.Tree, item, &r, TRUE));
        POINT point{(r.left + r.right) / 2, (r.top + r.bottom) / 2};
        ClientToScreen(tree.Tree, &point);
        return point;
    }
    ControlsForm form;
    LoggingTabs& tabs = form.tabs;
    LoggingTree& tree = form.tree;
};

TEST_F(XTabAndTreeTest, ShowsThePageOfTheChosenTab) {
    HWND pages[3];
    for (int i = 0; i < 3; ++i) {
        pages[i] = MakeChild(L"STATIC", 2000 + i, 0);
        EXPECT_EQ(tabs.AddPage(L"page", pages[i]), i);
    }
    EXPECT_EQ(tabs.AddPage(L"none", nullptr, 5), 3);
    const auto shown = [&] {
        return XString(std::int64_t{IsShown(pages[0]) + 10 * IsShown(pages[1]) + 100 * IsShown(pages[2])});
    };
    EXPECT_EQ(shown(), L"1");
    TabCtrl_SetCurFocus(tabs.Tabs, 2); // as a click: it notifies
    EXPECT_EQ(tabs.log, L"changing 0;selected 2;");
    EXPECT_EQ(shown(), L"100");
    TabCtrl_SetCurFocus(tabs.Tabs, 3);
    EXPECT_EQ(shown(), L"0");
    std::uint32_t handled = 0;
    NMHDR foreign{tree.Tree, 0, TCN_SELCHANGE};
    tabs.OnParentMessage(form.Hwnd, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&foreign), handled);
    EXPECT_EQ(handled, 0U);

    tabs.Fit(pages[2]);
    RECT page{}, control{};
    GetWindowRect(pages[2], &page);
    GetWindowRect(tabs.Tabs, &control);
    EXPECT_GT(page.top, control.top + 10); // below the tabs
    EXPECT_LT(control.right - page.right, 10);
    EXPECT_LT(page.left - control.left, 10);
    EXPECT_LT(control.bottom - page.bottom, 10);
    EXPECT_TRUE(page.right <= control.right && page.bottom <= control.bottom && page.left >= control.left);
}

TEST_F(XTabAndTreeTest, InsertsAtTheEndOfTheParent) {
    const HTREEITEM first = tree.InsertItem(L"first", 1, 2, nullptr);
    const HTREEITEM second = tree.InsertItem(L"second", -1, -1, nullptr);
    const HTREEITEM child = tree.InsertItem(L"child", -1, -1, first);
    const HTREEITEM last = tree.InsertItem(L"last", -1, -1, first);
    EXPECT_EQ(TreeView_GetNextSibling(tree.Tree, first), second);
    EXPECT_EQ(TreeView_GetChild(tree.Tree, first), child);
    EXPECT_EQ(TreeView_GetNextSibling(tree.Tree, child), last);
    TVITEMW item{};
    item.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    item.hItem = first;
    EXPECT_TRUE(TreeView_GetItem(tree.Tree, &item));
    EXPECT_EQ(item.iImage, 1);
    EXPECT_EQ(item.iSelectedImage, 2);
    XString text;
    text.SetLength(1500);
    text.Replace(L" ", L"x");
    EXPECT_EQ(tree.GetItemText(last), L"last");
    EXPECT_EQ(tree.GetItemText(tree.InsertItem(text, -1, -1, nullptr)), text.Left(999));
    EXPECT_EQ(tree.GetItemText(nullptr), L"");
}

TEST_F(XTabAndTreeTest, TurnsNotificationsIntoOperations) {
    const HTREEITEM first = tree.InsertItem(L"first", -1, -1, nullptr);
    const HTREEITEM child = tree.InsertItem(L"child", -1, -1, first);
    TreeView_SelectItem(tree.Tree, first);
    EXPECT_EQ(tree.Take(), L"selecting first;selected;");
    tree.refuses = true;
    SendMessageW(tree.Tree, WM_KEYDOWN, VK_RIGHT, 0);
    EXPECT_EQ(tree.Take(), L"opening;");
    EXPECT_FALSE(TreeView_GetItemState(tree.Tree, first, TVIS_EXPANDED) & TVIS_EXPANDED);
    tree.refuses = false;
    SendMessageW(tree.Tree, WM_KEYDOWN, VK_RIGHT, 0);
    SendMessageW(tree.Tree, WM_KEYDOWN, VK_LEFT, 0);
    EXPECT_EQ(tree.Take(), L"opening;opened;closing;closed;");
    tree.refuses = true;
    TreeView_SelectItem(tree.Tree, child);
    EXPECT_EQ(tree.Take(), L"selecting child;");
    EXPECT_EQ(TreeView_GetSelection(tree.Tree), first);
    EXPECT_EQ(Notify(tree.Tree, TVN_KEYDOWN), 1); // a blank
    for (const UINT code : {NM_CLICK, NM_DBLCLK, NM_RCLICK, NM_RDBLCLK})
        EXPECT_EQ(Notify(tree.Tree, code), 0) << code;
    EXPECT_EQ(tree.Take(), L"click;double;right;right double;");
    Notify(tabs.Tabs, NM_CLICK);
    EXPECT_EQ(tree.Take(), L"");
}

TEST_F(XTabAndTreeTest, SelectsTheItemThatTheContextMenuIsFor) {
    const HTREEITEM first = tree.InsertItem(L"first", -1, -1, nullptr);
    const HTREEITEM second = tree.InsertItem(L"second", -1, -1, nullptr);
    const auto ask = [&](int x, int y) {
        SendMessageW(form.Hwnd, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(tree.Tree), MAKELPARAM(x, y));
    };
    for (const HTREEITEM item : {second, first}) {
        const POINT point = MiddleOf(item);
        ask(point.x, point.y);
        EXPECT_EQ(TreeView_GetSelection(tree.Tree), item);
        EXPECT_TRUE(tree.asked.x == point.x && tree.asked.y == point.y);
    }
    ask(-1, -1); // from the keyboard
    EXPECT_EQ(TreeView_GetSelection(tree.Tree), first);
    const POINT middle = MiddleOf(first);
    EXPECT_TRUE(tree.asked.x <= middle.x && tree.asked.y > middle.y && tree.asked.y < MiddleOf(second).y);
    const POINT below{middle.x, middle.y + 150};
    ask(below.x, below.y);
    EXPECT_EQ(TreeView_GetSelection(tree.Tree), first);
    EXPECT_EQ(tree.asked.y, below.y);
}

} // namespace
