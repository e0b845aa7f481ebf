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

class AskedTree : public XTreeView {
public:
    void OnContextMenu(int x, int y) override { asked = POINT{x, y}; }
    POINT asked{};
};

class XTabAndTreeTest : public testing::Test, public XWindow {
protected:
    XTabAndTreeTest() {
        const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_TAB_CLASSES | ICC_TREEVIEW_CLASSES};
        InitCommonControlsEx(&controls);
        Create(L"form", RECT{50, 50, 450, 350}, WS_POPUP | WS_VISIBLE, 0, nullptr, 0);
        tabs.Tabs = MakeChild(WC_TABCONTROLW);
        tree.Tree = MakeChild(WC_TREEVIEWW);
    }
    ~XTabAndTreeTest() override { Destroy(); }
    LRESULT PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                       std::uint32_t& handled) override {
        const LRESULT result = tabs.OnParentMessage(hwnd, message, wParam, lParam, handled);
        return handled ? result : tree.OnParentMessage(hwnd, message, wParam, lParam, handled);
    }
    HWND MakeChild(const wchar_t* name) {
        return CreateWindowExW(0, name, L"", WS_CHILD | WS_VISIBLE, 20, 10, 300, 200, Hwnd, nullptr, nullptr,
                               nullptr);
    }
    POINT MiddleOf(HTREEITEM item) { // in screen pixels
        RECT r{};
        EXPECT_TRUE(TreeView_GetItemRect(tree.Tree, item, &r, TRUE));
        POINT point{(r.left + r.right) / 2, (r.top + r.bottom) / 2};
        ClientToScreen(tree.Tree, &point);
        return point;
    }
    LoggingTabs tabs;
    AskedTree tree;
};

TEST_F(XTabAndTreeTest, ShowsThePageOfTheChosenTab) {
    const HWND pages[] = {MakeChild(L"STATIC"), MakeChild(L"STATIC")};
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(tabs.AddPage(L"page", pages[i]), i);
    EXPECT_EQ(tabs.AddPage(L"none", nullptr, 5), 2);
    EXPECT_TRUE(IsWindowVisible(pages[0]) && !IsWindowVisible(pages[1]));
    TabCtrl_SetCurFocus(tabs.Tabs, 1); // as a click: it notifies
    EXPECT_EQ(tabs.log, L"changing 0;selected 1;");
    EXPECT_TRUE(!IsWindowVisible(pages[0]) && IsWindowVisible(pages[1]));
    TabCtrl_SetCurFocus(tabs.Tabs, 2);
    EXPECT_TRUE(!IsWindowVisible(pages[0]) && !IsWindowVisible(pages[1]));

    tabs.Fit(pages[1]);
    const RECT page = PlaceOf(pages[1]);
    RECT area = PlaceOf(tabs.Tabs);
    TabCtrl_AdjustRect(tabs.Tabs, FALSE, &area);
    EXPECT_TRUE(EqualRect(&page, &area));
}

TEST_F(XTabAndTreeTest, TakesTheBlankItself) {
    for (const WORD key : {VK_SPACE, VK_HOME}) {
        NMTVKEYDOWN header{{tree.Tree, 0, TVN_KEYDOWN}, key, 0};
        EXPECT_EQ(SendMessageW(Hwnd, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header)), key == VK_SPACE);
    }
}

TEST_F(XTabAndTreeTest, SelectsTheItemThatTheContextMenuIsFor) {
    const HTREEITEM first = tree.InsertItem(L"first", -1, -1, nullptr);
    const HTREEITEM second = tree.InsertItem(L"second", -1, -1, nullptr);
    const auto ask = [&](int x, int y) {
        SendMessageW(Hwnd, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(tree.Tree), MAKELPARAM(x, y));
        return TreeView_GetSelection(tree.Tree);
    };
    const POINT middle = MiddleOf(first), below = MiddleOf(second);
    EXPECT_EQ(ask(below.x, below.y), second);
    EXPECT_EQ(ask(middle.x, middle.y), first);
    EXPECT_TRUE(tree.asked.x == middle.x && tree.asked.y == middle.y);
    EXPECT_EQ(ask(-1, -1), first); // from the keyboard
    EXPECT_TRUE(tree.asked.x <= middle.x && tree.asked.y > middle.y && tree.asked.y < below.y);
    EXPECT_EQ(ask(below.x, below.y + 100), first); // no item there
}

} // namespace
