// The owner-drawn combo box: rows, looks, and what its edit does with keys.
#include "toolkit/XDropList.h"
#include "Canvas.h"
#include "Recorder.h"

#include <gtest/gtest.h>

namespace {

constexpr int comboId = 1006;
constexpr COLORREF grey = 0xC0C0C0, red = 0x0000FF;

class Listening : public XDropList {
public:
    void OnTextChanged(const XString& text) override { log += L"text=" + text + L";"; }
    void OnChanging() override { log += L"changing;"; }
    void OnOpening() override { log += L"opening;"; }
    void OnClosing() override { log += L"closing;"; }
    XString log;
};

class ComboForm : public XWindow {
public:
    ~ComboForm() override {
        list.Detach();
        Destroy();
    }
    LRESULT PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                       std::uint32_t& handled) override {
        return list.OnParentMessage(hwnd, message, wParam, lParam, handled);
    }
    Listening list;
};

class XDropListTest : public testing::Test {
protected:
    void Start(DWORD style, bool subclassEdit = true) {
        form.Create(L"form", RECT{50, 50, 350, 250}, WS_POPUP | WS_VISIBLE, 0, nullptr, 0);
        form.list.Attach(MakeChild(L"COMBOBOX", comboId, style | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS),
                         subclassEdit);
        next = MakeChild(L"EDIT", 1007, 0);
        ASSERT_NE(list.Combo, nullptr);
    }
    HWND MakeChild(const wchar_t* name, int id, DWORD style) {
        return CreateWindowExW(0, name, L"", style | WS_CHILD | WS_VISIBLE | WS_TABSTOP, 5, 5, 200, 150,
                               form.Hwnd, reinterpret_cast<HMENU>(INT_PTR{id}), nullptr, nullptr);
    }
    // What the user has typed, then the release of the last key.
    void Type(const wchar_t* text, WPARAM key) {
        SetWindowTextW(list.Edit, text);
        const int length = TextLength(text);
        SendMessageW(list.Edit, EM_SETSEL, static_cast<WPARAM>(length), length);
        SendMessageW(list.Edit, WM_KEYUP, key, 0);
    }
    XString Shown() { // the selection in brackets
        DWORD start = 0, end = 0;
        SendMessageW(list.Edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        XString text = list.GetText(true);
        text.Insert(L"]", static_cast<int>(end) + 1);
        text.Insert(L"[", static_cast<int>(start) + 1);
        return text;
    }
    void PressEnter() {
        for (const UINT message : {WM_KEYDOWN, WM_CHAR, WM_KEYUP})
            SendMessageW(list.Edit, message, VK_RETURN, 0);
    }
    bool WantsEnter() {
        MSG key{};
        key.message = WM_KEYDOWN;
        key.wParam = VK_RETURN;
        return SendMessageW(list.Edit, WM_GETDLGCODE, VK_RETURN, reinterpret_cast<LPARAM>(&key)) &
               DLGC_WANTMESSAGE;
    }
    ComboForm form;
    Listening& list = form.list;
    HWND next = nullptr;
};

TEST_F(XDropListTest, SetsItsHeightsItself) {
    form.list.RowHeight = 31;
    form.list.Pixels = 1;
    Start(CBS_DROPDOWNLIST);
    EXPECT_EQ(SendMessageW(list.Combo, CB_GETITEMHEIGHT, 0, 0), 31);
    EXPECT_GE(SendMessageW(list.Combo, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0), 31);
    MEASUREITEMSTRUCT measure{ODT_COMBOBOX, comboId, 0, 0, 0, 0};
    SendMessageW(form.Hwnd, WM_MEASUREITEM, comboId, reinterpret_cast<LPARAM>(&measure));
    EXPECT_EQ(measure.itemHeight, 31U);
}

TEST_F(XDropListTest, KeepsRowsBesideThoseOfTheCombo) {
    Start(CBS_DROPDOWNLIST);
    for (int i = 0; i < 150; ++i)
        ASSERT_EQ(list.AddRow(L"row " + DecimalText(i), nullptr, i % 3 ? -1 : 0), i % 3 ? i : 0);
    list.RemoveRow(77);
    list.RemoveRow(149);
    ASSERT_EQ(SendMessageW(list.Combo, CB_GETCOUNT, 0, 0), 149);
    ASSERT_EQ(list.Rows.Count(), 149);
    for (int i = 0; i < 149; ++i) {
        wchar_t text[20];
        SendMessageW(list.Combo, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
        ASSERT_EQ(list.Rows[i].Text, text) << i;
    }
    list.Clear();
    for (const wchar_t* text : {L"wave", L"Wave", L"FLAC"})
        list.AddRow(text);
    EXPECT_EQ(list.SelectByText(L"Wave"), 1);
    EXPECT_EQ(list.SelectByText(L"WAVE"), 0);
    EXPECT_EQ(list.GetText(false), L"wave");
    EXPECT_EQ(list.SelectByText(L"Wav"), -1);
    EXPECT_EQ(list.GetText(false), L"");
    EXPECT_EQ(list.GetText(true), L"");
    EXPECT_EQ(list.log, L"");
}

TEST_F(XDropListTest, ReportsWhatTheUserDoes) {
    Start(CBS_DROPDOWN);
    list.AddRow(L"first");
    list.AddRow(L"second");
    SetFocus(list.Edit);
    SendMessageW(list.Edit, WM_KEYDOWN, VK_DOWN, 0);
    EXPECT_EQ(list.log, L"changing;text=first;");
    list.log.Clear();
    SendMessageW(list.Edit, EM_SETSEL, 5, 5);
    SendMessageW(list.Edit, WM_CHAR, L's', 0);
    EXPECT_EQ(list.log, L"changing;text=firsts;");
    list.log.Clear();
    SendMessageW(list.Combo, CB_SHOWDROPDOWN, TRUE, 0);
    SendMessageW(list.Combo, CB_SHOWDROPDOWN, FALSE, 0);
    EXPECT_EQ(list.log, L"opening;closing;");
}

struct LookRow {
    UINT state;
    int row; // -1: the closed box without a choice
    bool box, rule, pale;
};

TEST_F(XDropListTest, DrawsEachStateOfARow) {
    constexpr LookRow rows[] = {
        {0, 0, false, false, false},
        {ODS_SELECTED | ODS_FOCUS, 0, true, false, false},
        {ODS_DISABLED, 0, false, false, true},
        {0, 1, false, true, false},
        {ODS_SELECTED, 1, true, true, false},
        {ODS_SELECTED | ODS_COMBOBOXEDIT, 1, true, false, false},
        {ODS_COMBOBOXEDIT, -1, false, false, false},
    };
    list.RowColour = 0x80FFFF;
    Start(CBS_DROPDOWNLIST);
    const XIcon icon = MakeIcon(16, 0xFF00FF00);
    list.AddRow(L"xx", icon.Get(), -1, red);
    list.AddRow(L"xx", nullptr, -1, red);
    list.AddSeparator();
    for (const LookRow& row : rows) {
        SCOPED_TRACE(testing::Message() << row.state << " row " << row.row);
        Canvas canvas(80, 18);
        DRAWITEMSTRUCT draw{ODT_COMBOBOX,
                            comboId,
                            static_cast<UINT>(row.row),
                            ODA_DRAWENTIRE,
                            row.state,
                            list.Combo,
                            canvas,
                            RECT{0, 0, 80, 18},
                            0};
        EXPECT_TRUE(SendMessageW(form.Hwnd, WM_DRAWITEM, comboId, reinterpret_cast<LPARAM>(&draw)));
        EXPECT_EQ(canvas.At(0, 8), 0x80FFFFU);
        EXPECT_EQ(canvas.At(40, 0), row.box ? 0xDDAC84U : 0x80FFFFU);
        EXPECT_EQ(canvas.At(0, 17) == grey && canvas.At(79, 17) == grey, row.rule);
        EXPECT_EQ(canvas.At(4, 8) == 0x00FF00, row.row == 0);
        EXPECT_EQ(canvas.Count(red) > 0, row.row >= 0 && !row.pale);
        EXPECT_EQ(canvas.Count(grey) > 0, row.pale || row.rule);
    }
}

TEST_F(XDropListTest, SuggestsTheRestOfARow) {
    constexpr struct {
        const wchar_t* typed;
        WPARAM key;
        const wchar_t* shown;
    } rows[] = {
        {L"c:\\M", L'M', L"c:\\M[usic\\Two]"},
        {L"c:\\M", VK_BACK, L"c:\\M[]"},
        {L"D:\\", VK_OEM_5, L"D:\\[]"},
        {L"d:\\music ", L' ', L"d:\\music [2]"},
        {L"x", L'X', L"x[]"},
        {L"", L'X', L"[]"},
    };
    Start(CBS_DROPDOWN);
    for (const wchar_t* text : {L"C:\\Music\\Two", L"C:\\Music", L"D:\\Music 2"})
        list.AddRow(text);
    for (const auto& row : rows) {
        Type(row.typed, row.key);
        EXPECT_EQ(Shown(), row.shown);
    }
    // The second of two quick keys comes up when the first has brought a suggestion already.
    Type(L"c:\\mu", L'M');
    SendMessageW(list.Edit, WM_KEYUP, L'U', 0);
    EXPECT_EQ(Shown(), L"c:\\mu[sic\\Two]");
    SendMessageW(list.Edit, WM_KILLFOCUS, 0, 0);
    EXPECT_EQ(Shown(), L"c:\\mu[]");
    // Typing in the middle leaves the caret where it is.
    SendMessageW(list.Edit, EM_SETSEL, 1, 1);
    SendMessageW(list.Edit, WM_KEYUP, L'M', 0);
    EXPECT_EQ(Shown(), L"c[]:\\mu");
}

TEST_F(XDropListTest, MovesOnWithEnterAtTheEndOfTheText) {
    Start(CBS_DROPDOWN);
    list.AddRow(L"C:\\Music");
    SetFocus(list.Edit);
    SendMessageW(list.Edit, WM_KEYUP, VK_RETURN, 0); // of an Enter that was pressed elsewhere
    EXPECT_EQ(GetFocus(), list.Edit);
    Type(L"c:", L'C');
    EXPECT_TRUE(WantsEnter());
    PressEnter();
    EXPECT_EQ(GetFocus(), next);
    EXPECT_EQ(list.GetText(true), L"c:\\Music"); // the suggestion is taken

    SetFocus(list.Edit);
    SendMessageW(list.Edit, EM_SETSEL, 2, 2);
    EXPECT_FALSE(WantsEnter()); // the dialog's default button
    PressEnter();
    EXPECT_EQ(GetFocus(), list.Edit);
    SendMessageW(list.Edit, EM_SETSEL, 8, 8);
    SendMessageW(list.Combo, CB_SHOWDROPDOWN, TRUE, 0);
    PressEnter(); // closes the list
    EXPECT_EQ(GetFocus(), list.Edit);
}

} // namespace
