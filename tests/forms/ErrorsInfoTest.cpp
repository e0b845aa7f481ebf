// The form of errors and information: its texts, and the form itself, alone and in the message loop
// of another dialog.
#include "forms/review/frmErrorsInfo.h"

#include "../support/HandleReach.h"
#include "FormDriver.h"
#include "forms/review/LogTree.h"
#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "host/Settings.h"
#include "resources/ids.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

void AddEntry(XArray<clLogEntry>& log, const wchar_t* source, std::initializer_list<const wchar_t*> lines) {
    clLogEntry* entry = log.AddNew();
    entry->codecName = L"MP3";
    entry->source = source;
    entry->output = L"D:\\out.mp3";
    for (const wchar_t* line : lines)
        entry->lines.AddString(line);
}

// All items in order as "image:text"; expanded roots begin with a minus.
XString Rows(HWND tree) {
    XString rows;
    const auto add = [&](HTREEITEM item) {
        wchar_t text[300] = L"";
        TVITEMW row{};
        row.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_STATE;
        row.hItem = item;
        row.stateMask = TVIS_EXPANDED;
        row.pszText = text;
        row.cchTextMax = 300;
        TreeView_GetItem(tree, &row);
        EXPECT_EQ(row.iImage, row.iSelectedImage);
        rows += (row.state & TVIS_EXPANDED ? L"-" : L"") + DecimalText(row.iImage) + L":" + text + L"|";
    };
    for (HTREEITEM root = TreeView_GetRoot(tree); root; root = TreeView_GetNextSibling(tree, root)) {
        add(root);
        for (HTREEITEM child = TreeView_GetChild(tree, root); child;
             child = TreeView_GetNextSibling(tree, child))
            add(child);
    }
    return rows;
}

XString ClipboardText() {
    XString text;
    if (OpenClipboard(nullptr)) {
        if (const HANDLE block = GetClipboardData(CF_UNICODETEXT)) {
            text = static_cast<const wchar_t*>(GlobalLock(block));
            GlobalUnlock(block);
        }
        CloseClipboard();
    }
    return text;
}

// A dialog whose loop serves the form, as that of the converting form does.
class Owner final : public XWindow {
public:
    explicit Owner(std::vector<FormDriver::Step> steps) {
        steps.insert(steps.begin(), [this] { return Hwnd && IsWindowVisible(Hwnd); });
        steps.push_back([this] { return EndDialog(Hwnd, 0) != 0; });
        struct Template {
            DLGTEMPLATE head{WS_POPUP | WS_CAPTION, 0, 1, 0, 0, 120, 60};
            WORD menuClassTitle[3] = {0, 0, 0};
            DLGITEMTEMPLATE button{WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 5, 5, 30, 14, 77};
            WORD classTitleData[4] = {0xFFFF, 0x80, 0, 0};
        };
        alignas(DWORD) static const Template dialog;
        const FormDriver driver(std::move(steps));
        ShowModal(&dialog.head, nullptr);
        EXPECT_TRUE(driver.IsDone());
    }
};

class ErrorsInfo : public testing::Test {
protected:
    ErrorsInfo() {
        form.ErrorLog = &errors;
        form.InfoLog = &info;
    }
    HWND Control(int id) const { return GetDlgItem(form.Hwnd, id); }
    bool IsShown(int id) const { return IsWindowVisible(Control(id)) != 0; }
    void ChooseTab(int index) const {
        RECT tab{};
        TabCtrl_GetItemRect(Control(ID_LOG_TABS), index, &tab);
        SendMessageW(Control(ID_LOG_TABS), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(tab.left + 4, tab.top + 4));
        SendMessageW(Control(ID_LOG_TABS), WM_LBUTTONUP, 0, MAKELPARAM(tab.left + 4, tab.top + 4));
    }

    XArray<clLogEntry> errors;
    XArray<clLogEntry> info;
    frmErrorsInfo form;
};

} // namespace

TEST_F(ErrorsInfo, ShowsWhatIsThere) {
    struct Row {
        bool hasErrors, hasInfo;
        const wchar_t *caption, *copy, *tree;
    };
    constexpr const wchar_t* errorRows =
        L"-0:Error converting to MP3, 'C:\\a & b.wav' to 'D:\\out.mp3'|2:bad|2:worse|2:|";
    constexpr const wchar_t* infoRows =
        L"-1:Information converting to MP3, 'C:\\i.wav' to 'D:\\out.mp3'|2:note|2:|";
    const Row rows[] = {
        {true, false, L"Zephtone: Conversion Errors", L"Copy Errors to Clipboard", errorRows},
        {false, true, L"Zephtone: Conversion Information", L"Copy Info to Clipboard", infoRows},
        {true, true, L"Zephtone: Conversion Errors & Information", L"Copy Errors to Clipboard", errorRows},
    };
    for (const Row& row : rows) {
        errors.Clear();
        info.Clear();
        if (row.hasErrors) {
            AddEntry(errors, L"C:\\a & b.wav", {L"bad", L"worse"});
            AddEntry(errors, L"C:\\silent.wav", {});
        }
        if (row.hasInfo)
            AddEntry(info, L"C:\\i.wav", {L"note"});
        form.ShowDuringBatch(nullptr);
        EXPECT_EQ(TextOf(form.Hwnd), XString(row.caption));
        EXPECT_EQ(TextOf(form.Hwnd, ID_LOG_COPY), XString(row.copy)) << row.caption;
        EXPECT_EQ(IsShown(ID_LOG_TABS), row.hasErrors && row.hasInfo) << row.caption;
        EXPECT_EQ(TabCtrl_GetItemCount(Control(ID_LOG_TABS)), row.hasErrors + row.hasInfo);
        EXPECT_EQ(Rows(Control(ID_LOG_TREE)), XString(row.tree));
        EXPECT_FALSE(IsShown(ID_LOG_RECONVERT));
    }
}

TEST_F(ErrorsInfo, ReadsTheLogsWhenTheTabChangesAndCopiesWhatItShows) {
    AddEntry(errors, L"C:\\e.wav", {L"bad"});
    XString longLine(L"x");
    longLine.SetLength(3000);
    longLine += L"y";
    AddEntry(info, L"C:\\i.wav", {L"one", longLine});
    AddEntry(info, longLine, {L"\u00FCber"});
    form.ShowDuringBatch(nullptr);
    AddEntry(errors, L"C:\\f.wav", {L"late"});
    const HWND tree = Control(ID_LOG_TREE);
    const XString first = L"-0:Error converting to MP3, 'C:\\e.wav' to 'D:\\out.mp3'|2:bad|2:|";
    EXPECT_EQ(Rows(tree), first);
    ChooseTab(1);
    EXPECT_EQ(TextOf(form.Hwnd, ID_LOG_COPY), XString(L"Copy Info to Clipboard"));
    SendMessageW(Control(ID_LOG_COPY), BM_CLICK, 0, 0);
    XString copied = L"Information converting to MP3, 'C:\\i.wav' to 'D:\\out.mp3'\r\n   one\r\n   ";
    copied += longLine + L"\r\n   \r\n";
    copied += (L"Information converting to MP3, '" + longLine).Left(999);
    EXPECT_EQ(ClipboardText(), copied + L"\r\n   \u00FCber\r\n   ");

    ChooseTab(0);
    EXPECT_EQ(Rows(tree), first + L"-0:Error converting to MP3, 'C:\\f.wav' to 'D:\\out.mp3'|2:late|2:|");
    SendWithControl(tree, 'C');
    EXPECT_TRUE(ClipboardText().StartsWith(L"Error converting to MP3, 'C:\\e.wav'"));
}

TEST_F(ErrorsInfo, HandsFailedFilesToAnotherRun) {
    static XString started;
    static XBuffer list;
    static XString path;
    static bool canStart;
    const clProgramStart real = startProgram;
    startProgram = [](XString& commandLine) {
        started = commandLine;
        const XString option(L"-list_to_conv=\"");
        path = commandLine.From(commandLine.Find(option) + option.Count());
        path = path.Left(path.Count() - 1);
        EXPECT_TRUE(ReadWholeFile(path, list));
        return canStart;
    };
    AddEntry(errors, L"C:\\a b.wav", {L"bad"});
    AddEntry(errors, L"C:\\\u00FC.wav", {}); // listed without a line, too
    AddEntry(errors, L"C:\\a b.wav", {L"again"});
    constexpr wchar_t expected[] = L"C:\\a b.wav\r\nC:\\\u00FC.wav\r\nC:\\a b.wav\r\n";
    constexpr std::size_t bytes = sizeof(expected) - sizeof(wchar_t);
    form.CanReconvert = true;
    for (const bool runs : {true, false}) {
        canStart = runs;
        const FormDriver driver({[&] {
            return form.Hwnd && IsShown(ID_LOG_RECONVERT) &&
                   PostMessageW(Control(ID_LOG_RECONVERT), BM_CLICK, 0, 0);
        }});
        form.ShowEndOfBatch(nullptr);
        EXPECT_TRUE(driver.IsDone());
        EXPECT_EQ(started, L"\"" + ProgramFolder() + L"Tonemill.exe\" -list_to_conv=\"" + path + L"\"");
        EXPECT_GT(path.Find(L"\\ZtS"), 0) << path.Text();
        EXPECT_TRUE(list.size == bytes && std::memcmp(list.data, expected, bytes) == 0);
        EXPECT_EQ(IsFile(path), runs);
        DeleteOneFile(path);
    }
    startProgram = real;
}

TEST_F(ErrorsInfo, ExpandsAndCollapsesAllFromTheKeyboard) {
    AddEntry(errors, L"C:\\a.wav", {L"x"});
    AddEntry(errors, L"C:\\b.wav", {L"y"});
    const XString open = L"-0:Error converting to MP3, 'C:\\a.wav' to 'D:\\out.mp3'|2:x|2:|"
                         L"-0:Error converting to MP3, 'C:\\b.wav' to 'D:\\out.mp3'|2:y|2:|";
    XString closed(open);
    closed.Replace(L"-0:", L"0:");
    const auto tree = [&] { return Control(ID_LOG_TREE); };
    std::vector<FormDriver::Step> steps{[&] { return form.ShowDuringBatch(nullptr), true; }};
    AskMenu(steps, tree, 2);
    steps.emplace_back([&] { return Rows(tree()) == closed; });
    AskMenu(steps, tree, 1);
    steps.emplace_back([&] { return Rows(tree()) == open; });
    const Owner owner(std::move(steps));
}

TEST_F(ErrorsInfo, TakesKeysInTheLoopOfItsOwner) {
    AddEntry(errors, L"C:\\a.wav", {L"x"});
    AddEntry(info, L"C:\\b.wav", {L"y"});
    HWND owner = nullptr;
    const auto show = [&] {
        owner = FindForm(77);
        form.ShowDuringBatch(owner);
        return true;
    };
    const auto focusIs = [&](int id) { return [&, id] { return form.Hwnd && GetFocus() == Control(id); }; };
    const auto isClosed = [&] { return !IsWindowVisible(form.Hwnd) && GetActiveWindow() == owner; };
    const Owner loop({
        show, focusIs(ID_LOG_TREE), PressKey(VK_TAB), focusIs(ID_LOG_COPY),
        PressKey(VK_TAB), // the hidden button is passed over
        focusIs(IDOK), PressKey(VK_TAB), focusIs(ID_LOG_TABS), PressKey(VK_RIGHT),
        [&] { return TextOf(form.Hwnd, ID_LOG_COPY) == L"Copy Info to Clipboard"; }, PressKey(VK_ESCAPE),
        isClosed, [&] { return IsWindowEnabled(owner) && IsWindowVisible(owner); }, show,
        focusIs(ID_LOG_TREE), PressKey(VK_RETURN), isClosed,
        show, // left open: it goes with its owner
    });
    EXPECT_EQ(form.Hwnd, nullptr);
}

TEST_F(ErrorsInfo, NothingOverlapsAtAnySize) {
    AddEntry(errors, L"C:\\a.wav", {L"x"});
    form.CanReconvert = true;
    for (const bool both : {false, true}) {
        if (both)
            AddEntry(info, L"C:\\b.wav", {L"y"});
        const RECT before = PlaceOf(form.Hwnd);
        form.ShowDuringBatch(nullptr);
        const RECT after = PlaceOf(form.Hwnd);
        EXPECT_TRUE(!both || EqualRect(&before, &after)); // shown anew where it stood
        for (const SIZE& size : {SIZE{1, 1}, SIZE{700, 300}, SIZE{1200, 900}}) {
            form.MoveTo(0, 0, size.cx, size.cy);
            const HWND inTabs = both ? Control(ID_LOG_TREE) : nullptr;
            EXPECT_EQ(CountPlacedControls(form.Hwnd, size.cx, size.cy, inTabs), 5U);
            const RECT tree = PlaceOf(Control(ID_LOG_TREE));
            const RECT tabs = PlaceOf(Control(ID_LOG_TABS));
            EXPECT_GT(tree.bottom - tree.top, 50);
            EXPECT_TRUE(!both || (tree.left > tabs.left && tree.top > tabs.top + 10 &&
                                  tree.right < tabs.right && tree.bottom < tabs.bottom));
            const HDC dc = GetDC(Control(ID_LOG_TREE)); // drawn where it stands now
            EXPECT_EQ(GetPixel(dc, tree.right - tree.left - 40, tree.bottom - tree.top - 40),
                      GetSysColor(COLOR_WINDOW))
                << size.cx;
            ReleaseDC(Control(ID_LOG_TREE), dc);
        }
    }
}

// With a search per item this takes minutes.
TEST_F(ErrorsInfo, OpensAndCopiesTenThousandFiles) {
    for (int i = 0; i < 10000; ++i)
        AddEntry(errors, L"C:\\a folder with a name\\a file with a name.wav", {L"one", L"two", L"three"});
    const DWORD start = GetTickCount();
    form.ShowDuringBatch(nullptr);
    XTreeView tree;
    tree.Tree = Control(ID_LOG_TREE);
    const XString text = LogTreeText(tree);
    EXPECT_LT(GetTickCount() - start, 20000U);
    EXPECT_EQ(TreeView_GetCount(tree.Tree), 50000U);
    EXPECT_GT(text.Count(), 50000 * 8);
}

TEST_F(ErrorsInfo, PassesTheWheelToTheTree) {
    for (int i = 0; i < 50; ++i)
        AddEntry(errors, L"C:\\a.wav", {L"x"});
    form.ShowDuringBatch(nullptr);
    const HWND tree = Control(ID_LOG_TREE);
    const auto turn = [](HWND window, int delta) {
        SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)), 0);
    };
    turn(form.Hwnd, -130);
    turn(tree, WHEEL_DELTA);
    EXPECT_NE(TreeView_GetFirstVisible(tree), TreeView_GetRoot(tree)); // two steps had been passed on
    turn(tree, WHEEL_DELTA);
    EXPECT_EQ(TreeView_GetFirstVisible(tree), TreeView_GetRoot(tree));
}

TEST_F(ErrorsInfo, FiftyShowingsLeaveNothingBehind) {
    AddEntry(errors, L"C:\\a.wav", {L"x"});
    AddEntry(info, L"C:\\b.wav", {L"y"});
    ExpectNothingLeftBy(50, [&] {
        form.CanReconvert = false;
        form.ShowDuringBatch(nullptr);
        ChooseTab(1);
        form.CanReconvert = true;
        const FormDriver driver(
            {[&] { return form.Hwnd && IsShown(IDOK) && PostMessageW(form.Hwnd, WM_CLOSE, 0, 0); }});
        form.ShowEndOfBatch(nullptr);
    });
}
