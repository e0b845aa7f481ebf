// The owner-drawn menu: its items by state, pixel by pixel, and its keys. Forms' tests open real menus.
#include "toolkit/XOwnerMenu.h"
#include "../support/HandleReach.h"
#include "Canvas.h"
#include "toolkit/GreyIcon.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

constexpr UINT saveAndQuit = 2, rise = 3, sink = 4, faint = 5;
constexpr COLORREF blue = 0xFF0000, greyBlue = 0x787878; // (0 + 0 + 255) / 3 + 35
constexpr COLORREF selectedPen = 0xEBD8A8, checkedPen = 0xCDBA8A, paleText = 0xC0C0C0;

struct Answer {
    LRESULT result;
    std::uint32_t handled;
};
Answer Send(XOwnerMenu& menu, UINT message, WPARAM wParam, const void* lParam) {
    Answer answer{0, 0};
    answer.result =
        menu.OnParentMessage(nullptr, message, wParam, reinterpret_cast<LPARAM>(lParam), answer.handled);
    return answer;
}

MENUITEMINFOW ItemAt(HMENU menu, int position) {
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_DATA | MIIM_ID | MIIM_SUBMENU;
    EXPECT_TRUE(GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info)) << position;
    return info;
}

void DrawAt(XOwnerMenu& menu, int position, UINT state, const Canvas& canvas, int height = 20) {
    const auto in = reinterpret_cast<HWND>(menu.Popup());
    const DRAWITEMSTRUCT draw{ODT_MENU,
                              0,
                              0,
                              ODA_DRAWENTIRE,
                              state,
                              in,
                              canvas,
                              RECT{0, 0, 100, height},
                              ItemAt(menu.Popup(), position).dwItemData};
    EXPECT_EQ(Send(menu, WM_DRAWITEM, 0, &draw).handled, 1U) << position;
}

TEST(XOwnerMenu, TakesAResourceWithItsSubMenus) {
    XOwnerMenu menu;
    ASSERT_TRUE(menu.Load(901));
    const HMENU subMenu = GetSubMenu(menu.Popup(), 0);
    EXPECT_EQ(menu.Items.Count(), 6);
    for (int i = 0; i < 6; ++i)
        EXPECT_TRUE(ItemAt(menu.Popup(), i).fType & MFT_OWNERDRAW) << i;
    EXPECT_TRUE(ItemAt(subMenu, 0).fType & MFT_OWNERDRAW);
    EXPECT_EQ(menu.Find(saveAndQuit)->Text, L"Save & Quit");
    EXPECT_EQ(menu.Find(rise)->Text, L"Rise");
    EXPECT_EQ(menu.Find(rise)->AccessKey, L'S');
    EXPECT_EQ(menu.Find(faint)->AccessKey, L'F');

    const XIcon icon = MakeIcon(16, 0xFF0000FF);
    ASSERT_TRUE(menu.AddItem({.Id = 10, .Text = L"R&&B.dll", .Icon = icon.Get(), .Parent = subMenu}, true));
    menu.RemoveItem(1);
    EXPECT_EQ(GetMenuItemCount(subMenu), 1);
    EXPECT_EQ(ItemAt(subMenu, 0).wID, 10U);
    EXPECT_EQ(menu.Find(10)->Text, L"R&&B.dll");
    EXPECT_EQ(menu.Find(1), nullptr);

    EXPECT_FALSE(menu.Load(4711));
    EXPECT_EQ(menu.Popup(), nullptr);
}

TEST(XOwnerMenu, LeavesMenusOfOthersAlone) {
    XOwnerMenu menu, other;
    ASSERT_TRUE(menu.Load(901));
    ASSERT_TRUE(other.Load(901));
    for (const XOwnerMenu* asked : {&menu, &other})
        for (const int position : {1, 2}) { // an item, a separator
            MEASUREITEMSTRUCT measure{ODT_MENU, 0, 0, 0, 0, ItemAt(asked->Popup(), position).dwItemData};
            EXPECT_EQ(Send(menu, WM_MEASUREITEM, 0, &measure).handled, asked == &menu) << position;
            EXPECT_EQ(measure.itemHeight > 5, asked == &menu) << position;
        }
    EXPECT_EQ(Send(menu, WM_MENUCHAR, L's', other.Popup()).handled, 0U);
}

struct LookRow {
    bool selected, checked, disabled;
    bool box;      // of the selected item
    COLORREF icon; // in the middle of the icon
    bool black;    // anything black: the text, the check mark
    bool pale;     // the disabled text
};

TEST(XOwnerMenu, ShowsTheStateOfAnItemAsItIsWhenItDraws) {
    constexpr LookRow rows[] = {
        {false, false, false, false, blue, true, false},    {true, false, false, true, blue, true, false},
        {false, true, false, false, blue, true, false},     {true, true, false, true, blue, true, false},
        {false, false, true, false, greyBlue, false, true}, {true, false, true, false, greyBlue, false, true},
        {true, true, true, false, greyBlue, true, true},
    };
    XOwnerMenu menu;
    const XIcon icon = MakeIcon(16, 0xFF0000FF);
    ASSERT_TRUE(menu.AddItem({.Id = 7, .Text = L"Text", .Icon = icon.Get()}, true));
    for (const LookRow& row : rows) {
        SCOPED_TRACE(testing::Message() << row.selected << row.checked << row.disabled);
        menu.CheckItem(7, row.checked);
        menu.EnableItem(7, !row.disabled);
        Canvas canvas(100, 20);
        DrawAt(menu, 0, row.selected ? ODS_SELECTED : 0, canvas);
        EXPECT_EQ(canvas.At(50, 0) == selectedPen, row.box);
        EXPECT_EQ(canvas.At(98, 10) == checkedPen, row.checked); // the bracket two pixels from the edge
        EXPECT_EQ(canvas.At(24, 10) == checkedPen, row.checked);
        EXPECT_EQ(canvas.At(1, 10) == checkedPen, row.checked); // the box in the strip
        EXPECT_EQ(canvas.At(93, 11) == 0 && canvas.At(88, 13) == 0, row.checked);
        EXPECT_EQ(canvas.At(11, 10), row.icon);
        EXPECT_EQ(canvas.Count(0) > 0, row.black);
        EXPECT_EQ(canvas.Count(paleText) > 0, row.pale);
    }
}

struct KeyRow {
    wchar_t key;
    int highlighted; // position, -1 none
    int position;    // -1: not handled
    int action;
};

TEST(XOwnerMenu, FindsItemsByTheirKeys) {
    // Save & Quit and Rise share S with Sink and the sub-menu; Faint is gray.
    constexpr KeyRow rows[] = {
        {L's', -1, 0, MNC_SELECT},  {L'S', 0, 1, MNC_SELECT}, {L's', 3, 4, MNC_SELECT},
        {L's', 4, 0, MNC_SELECT},   {L'f', -1, -1, 0},        {L'x', -1, -1, 0},
        {L'z', -1, 6, MNC_EXECUTE},
    };
    XOwnerMenu menu;
    ASSERT_TRUE(menu.Load(901));
    ASSERT_TRUE(menu.AddItem({.Id = 6, .Text = L"Zoom"}, true));
    for (const KeyRow& row : rows) {
        for (int i = 0; i < 7; ++i) {
            MENUITEMINFOW info = ItemAt(menu.Popup(), i);
            info.fMask = MIIM_STATE;
            info.fState = (info.wID == faint ? MFS_GRAYED : 0) | (i == row.highlighted ? MFS_HILITE : 0);
            SetMenuItemInfoW(menu.Popup(), static_cast<UINT>(i), TRUE, &info);
        }
        const Answer answer = Send(menu, WM_MENUCHAR, row.key, menu.Popup());
        EXPECT_EQ(answer.handled, row.position >= 0) << row.position;
        EXPECT_EQ(answer.result, row.position >= 0 ? MAKELRESULT(row.position, row.action) : 0)
            << row.position;
    }
}

TEST(XOwnerMenu, KeepsNothingAfterManyLoads) {
    const XIcon icon = MakeIcon(16, 0xFF0000FF);
    const Canvas canvas(100, 20);
    ExpectNothingLeftBy(50, [&] {
        XOwnerMenu menu;
        ASSERT_TRUE(menu.Load(901));
        menu.SetItemIcon(sink, icon.Get());
        menu.SetItemIcon(sink, icon.Get());
        ASSERT_TRUE(menu.AddItem({.Id = 6, .Text = L"Added", .Icon = icon.Get()}, true));
        for (int i = 0; i < 7; ++i)
            DrawAt(menu, i, ODS_SELECTED, canvas);
        menu.RemoveItem(6);
    });
}

TEST(GreyIcon, LightensAllButBlackAndKeepsTransparency) {
    const struct {
        std::uint32_t argb;
        COLORREF onWhite;
    } rows[] = {
        {0xFF0000FF, 0x787878}, {0xFFF0F0E0, 0xFFFFFF}, {0xFF000000, 0x000000},
        {0xFF010000, 0x232323}, {0x00FF0000, 0xFFFFFF},
    };
    std::vector<std::uint32_t> pixels(16 * 16);
    for (std::size_t i = 0; i < std::size(rows); ++i)
        pixels[i] = rows[i].argb;
    const std::vector<std::uint8_t> none(32);
    const XGdiObject colour(CreateBitmap(16, 16, 1, 32, pixels.data()));
    const XGdiObject mask(CreateBitmap(16, 16, 1, 1, none.data()));
    ICONINFO info{TRUE, 0, 0, static_cast<HBITMAP>(mask.Get()), static_cast<HBITMAP>(colour.Get())};
    const XIcon source(CreateIconIndirect(&info)), grey = MakeGreyIcon(source.Get());
    const Canvas canvas(16, 16);
    EXPECT_TRUE(DrawIconEx(canvas, 0, 0, grey.Get(), 0, 0, 0, nullptr, DI_NORMAL));
    for (int i = 0; i < static_cast<int>(std::size(rows)); ++i)
        EXPECT_EQ(canvas.At(i, 0), rows[i].onWhite) << std::hex << rows[i].argb;
    EXPECT_FALSE(MakeGreyIcon(nullptr).IsValid());
}

} // namespace
