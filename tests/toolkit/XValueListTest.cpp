// The rows of a value list: their texts, drawing, states and order.
#include "../support/HandleReach.h"
#include "Canvas.h"
#include "ValueListForm.h"

#include "toolkit/XFont.h"
#include "toolkit/XValueMasks.h"

namespace {
constexpr COLORREF background = 0xFFFFFF;

class XValueListTest : public testing::Test {
protected:
    void SetUp() override {
        form.Open();
        form.list.Pixels = 1; // of the rows
    }
    XString ListText(int row) {
        wchar_t text[100] = L"";
        SendMessageW(form.list.List, LB_GETTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text));
        return text;
    }
    // Paints the row as the list box would ask for it, at 400 by 21, and answers a pixel.
    COLORREF Draw(int row, UINT state, int x = 0, int y = 10) {
        XBitmap canvas;
        canvas.Create(nullptr, 400, 21);
        DRAWITEMSTRUCT draw{};
        draw.itemID = static_cast<UINT>(row);
        draw.itemState = state;
        draw.hwndItem = form.list.List;
        draw.hDC = canvas.Dc;
        draw.rcItem = {0, 0, 400, 21};
        SendMessageW(form.Hwnd, WM_DRAWITEM, form.list.ControlId, reinterpret_cast<LPARAM>(&draw));
        return GetPixel(canvas.Dc, x, y);
    }
    ValueListForm form;
};

struct TextRow {
    std::uint32_t kind;
    const wchar_t *caption, *value, *listed, *shownCaption, *shownValue, *shownLater;
};
constexpr TextRow textRows[] = {
    {0, L"a", L"b", L"a: b", L"a", L"b", L"later"},
    {1, L"a", L"b", L"a: b", L"a", L"b", L"b"},
    {2, L"", L"b", L"b", L"", L"b", L"later"},
    {3, L"a", L"", L"a", L"a", L"", L"later"},
    {5, L"a", L"b\rc", L"a: b\rc", L"a", L"b...", L"later"},
    {6, L"a", L"\r\nb", L"a: \r\nb", L"a", L"...", L"later"},
    {7, L"a", L"b", L"a: b", L"a", L"b", L"later"},
    {8, L"a", L"1", L"a: 1", L"a", L"", L""},
    {9, L"a", L"", L"a", L"a", L"", L""},
};

TEST_F(XValueListTest, ListsAndShowsTextsByKind) {
    for (const TextRow& row : textRows) {
        form.list.Clear();
        form.Add(row.kind, row.value, row.caption);
        EXPECT_EQ(ListText(0), XString(row.listed)) << row.kind;
        Draw(0, 0);
        XArray<clDLText>& texts = form.Row(0).Records.Texts;
        EXPECT_EQ(texts[0].Text, XString(row.shownCaption)) << row.kind;
        EXPECT_EQ(texts[1].Text, XString(row.shownValue)) << row.kind;
        form.Row(0).Value = L"later";
        Draw(0, 0);
        EXPECT_EQ(texts[1].Text, XString(row.shownLater)) << row.kind;
    }
}

TEST_F(XValueListTest, KeepsCaptionValueAndButtonApart) {
    clValueRowDesc description;
    description.Caption = L"name";
    description.CaptionX = 10;
    description.ValueX = 100;
    description.ButtonText = L"Settings";
    form.list.AddRow(description);
    XArray<clDLText>& texts = form.Row(0).Records.Texts;
    EXPECT_EQ(texts[0].MaxWidth, 0);
    form.Row(0).Value = L"a long text of settings that reaches as far as the button and beyond it by much";
    Draw(0, 0);
    EXPECT_EQ(texts[0].MaxWidth, 90);
    XBitmap canvas;
    canvas.Create(nullptr, 1, 1);
    XFont font;
    font.Create(canvas.Dc, nullptr, 13);
    EXPECT_EQ(texts[1].MaxWidth, 400 - 100 - font.Width(nullptr, L"[ Settings ]") - 7);
    Draw(0, ODS_SELECTED);
    EXPECT_EQ(texts[1].MaxWidth, 300);
    form.Row(0).ValueWidth = 20; // less than the button: nothing of the value shows
    Draw(0, 0);
    EXPECT_EQ(texts[1].MaxWidth, 1);
}

TEST_F(XValueListTest, PaintsItsStates) {
    form.Add(valuePlain, L"", L"");
    form.Add(valueBanner, L"", L"");
    form.Add(valuePlain, L"");
    form.Row(2).Disabled = true;
    EXPECT_EQ(Draw(0, 0, 1, 0), background);
    EXPECT_NE(Draw(0, ODS_SELECTED, 1, 0), background);            // the box
    EXPECT_NE(Draw(0, ODS_FOCUS, 3, 2), Draw(0, ODS_FOCUS, 4, 2)); // dots of the focus frame
    EXPECT_NE(Draw(1, 0, 398, 1), background);
    EXPECT_EQ(Draw(7, 0, 50, 10), background); // no such row
    Draw(2, 0);
    EXPECT_EQ(form.Row(2).Records.Texts[0].Colour, 0u); // pale only while painting
    form.Add(valueEdit, L"value");
    form.list.SelectRow(3);
    Draw(3, ODS_SELECTED);
    EXPECT_EQ(form.Row(3).Records.ActiveMask & maskValueShown, 0u); // the edit field shows it
}

struct MoveCase {
    int from, to;
    const char* order;
};
constexpr MoveCase moveCases[] = {
    {0, 2, "bacd"}, {0, 4, "bcda"},  {0, 99, "bcda"}, {2, 0, "cabd"}, {3, 1, "adbc"},  {1, 2, "abcd"},
    {3, 4, "abcd"}, {3, 99, "abcd"}, {2, 2, "abcd"},  {4, 0, "abcd"}, {-1, 0, "abcd"}, {0, -1, "abcd"},
};

TEST_F(XValueListTest, MovesAddsAndRemovesRows) {
    for (const MoveCase& move : moveCases) {
        form.list.Clear();
        for (const wchar_t* caption : {L"a", L"b", L"c", L"d"})
            form.Add(valuePlain, L"", caption);
        form.list.MoveRow(move.from, move.to);
        EXPECT_EQ(form.Order(), move.order) << move.from << " " << move.to;
        for (int row = 0; row < 4; ++row)
            EXPECT_EQ(ListText(row), form.Row(row).Caption) << move.from << " " << move.to;
    }
    for (const auto& [caption, position] : {std::pair(L"e", 4), std::pair(L"f", 0), std::pair(L"g", 7)})
        form.Add(valueEdit, L"", caption, L"", 0, position); // there is no place 7
    EXPECT_EQ(form.Order(), "fabcde");
    form.list.SelectRow(5);
    ASSERT_EQ(form.list.Control.Row, 5);
    const RECT place = PlaceOf(form.list.Control.Window);
    form.list.RemoveRow(1); // the control goes up with its row
    EXPECT_EQ(form.list.Control.Row, 4);
    EXPECT_EQ(PlaceOf(form.list.Control.Window).top, place.top - form.list.RowHeight);
    form.list.RemoveRow(4);
    EXPECT_EQ(form.list.SelectedRow(), -1); // it was the last
    EXPECT_EQ(form.list.Control.Row, -1);
    form.list.SelectRow(0);
    form.list.RemoveRow(0);
    EXPECT_EQ(form.list.SelectedRow(), 0);
    form.list.RemoveRow(9);
    EXPECT_EQ(form.Order(), "bcd");
    form.list.SelectRow(99);
    EXPECT_EQ(form.list.SelectedRow(), 0);
}

TEST_F(XValueListTest, ReleasesWhatItsRowsHold) {
    const auto icon = [] { return MakeIcon(9, 0).Release(); };
    form.list.SetIcons({icon(), icon(), icon(), icon(), icon(), icon(), icon(), icon()});
    const auto fill = [this](int selected) {
        for (std::uint32_t kind = valueText; kind <= valueRadio; ++kind)
            form.Add(kind, L"1", L"caption", L"button");
        form.list.SelectRow(selected);
        UpdateWindow(form.list.List);
        form.list.Clear();
        form.Pump();
    };
    for (int row = 0; row < 10; ++row)
        fill(row); // what the system keeps for each kind of control, and the image of one row
    const HandleReach before;
    for (int round = 0; round < 50; ++round)
        fill(round % 10);
    const HandleReach after;
    ExpectNothingLeft(before, after, 50);
}

} // namespace
