// The chain of effects on the set-up form: its rows, its menu, the files and the dialog of settings.
#include "host/EffectChain.h"
#include "../support/HandleReach.h"
#include "FormDriver.h"
#include "forms/setup/EffectSettingsDialog.h"
#include "forms/setup/frmConvertToOpt.h"
#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"
#include "host/Settings.h"
#include "plugins/dsp/PanelIds.h"
#include "resources/ids.h"

#include <gtest/gtest.h>

namespace {

constexpr wchar_t item[] = L"Alpha"; // an encoder of the tests
constexpr wchar_t report[] = L"Batch Report";
using Steps = std::vector<FormDriver::Step>;

HWND Form() {
    return FindForm(ID_OPTIONS_TAB);
}
HWND List() {
    return FindWindowExW(Form(), nullptr, L"ListBox", nullptr);
}
HWND Dialog(const wchar_t* effect) {
    const HWND dialog = FindWindowW(nullptr, XString(L"Zephtone DSP Settings: ") + effect);
    return dialog && IsWindowVisible(dialog) ? dialog : nullptr;
}
HMENU OpenMenu() {
    constexpr UINT askMenu = 0x01E1; // MN_GETHMENU
    const HWND window = FindWindowW(L"#32768", nullptr);
    return window && IsWindowVisible(window)
               ? reinterpret_cast<HMENU>(SendMessageW(window, askMenu, 0, 0)) // as it is shown
               : nullptr;
}
FormDriver::Step Command(HWND (*window)(), int id) {
    return [=] { return window() && PostMessageW(window(), WM_COMMAND, static_cast<WPARAM>(id), 0); };
}
FormDriver::Step Close(const wchar_t* effect, UINT message = WM_COMMAND) {
    return [=] { return Dialog(effect) && PostMessageW(Dialog(effect), message, IDOK, 0); };
}
FormDriver::Step Select(int row) { // as the arrow keys do
    return [=] {
        SendMessageW(List(), LB_SETCURSEL, static_cast<WPARAM>(row), 0);
        SendMessageW(Form(), WM_COMMAND, LBN_SELCHANGE << 16, reinterpret_cast<LPARAM>(List()));
    };
}
void AddKeys(Steps& steps, std::initializer_list<WPARAM> keys) { // for the open menu
    for (const WPARAM key : keys)
        steps.emplace_back([key] { return PostMessageW(Form(), WM_KEYDOWN, key, 0) != 0; });
}
void AddMenuKeys(Steps& steps, std::initializer_list<WPARAM> keys) {
    steps.push_back(Command(Form, ID_EFFECT_ADD));
    steps.emplace_back([] { return OpenMenu() != nullptr; });
    AddKeys(steps, keys);
}

class EffectChain : public testing::Test {
protected:
    EffectChain() : root(ProgramFolder() + L"chain\\") {
        DeleteTree(root);
        MakeFolders(root + L"DSPs\\a folder.dll");
        MakeFolders(root + L"encoder");
        XString program = StripBackslash(ProgramFolder()), last;
        PopLastFolder(last, program);
        PopLastFolder(last, program);
        program = AddBackslash(program) + L"Tonemill\\";
        const auto copy = [](const XString& from, const XString& to) {
            EXPECT_TRUE(CopyFileW(from, to, FALSE)) << testing::PrintToString(to) << GetLastError();
        };
        const XString own = ProgramFolder(), effects = root + L"DSPs\\";
        copy(own + L"setup_fakes\\encoder\\Alpha.dll", root + L"encoder\\Alpha.dll");
        copy(own + L"setup_fakes\\encoder\\Alpha.dll", effects + L"no effect.dll");
        for (const wchar_t* name : {L"Batch Report.dll", L"Batch Report.ico"})
            copy(program + L"DSPs\\" + name, effects + name);
        for (const wchar_t* name : {L"Odd.dll", L"_Hidden.dll"})
            copy(own + L"fakes\\odd.dll", effects + name);
        SetPluginRoot(root);
        RegWriteString(item, Setting::lastCodec);
    }
    ~EffectChain() override {
        SetPluginRoot(nullptr);
        DeleteTree(root);
    }
    // The chain that the item has after the steps and "Convert >>".
    XString Run(const XString& chain, Steps steps) {
        clRecipe recipe;
        recipe.effects = chain;
        WriteRecipe(item, recipe);
        steps.insert(steps.begin(), [] { return Form() && IsWindowVisible(Form()); });
        steps.push_back(Command(Form, IDOK));
        const FormDriver driver(std::move(steps));
        bool convert = false;
        const frmConvertToOpt form(convert, files, seams);
        EXPECT_TRUE(driver.IsDone() && convert);
        return ReadRecipe(item).effects;
    }

    TestSettings settings;
    XString root;
    clFileList files;
    clSetUpSeams seams;
};

XString ChainOf(const wchar_t* letters) {
    XArray<clChainEntry> chain;
    for (; *letters; ++letters)
        chain.AddNew()->name = *letters == L'O' ? XString(L"Odd") : XString(letters).Left(1);
    return EffectChainToText(chain);
}

struct EditRow {
    const wchar_t* before;
    int selected;
    std::initializer_list<WPARAM> keys; // in the menu
    int answer;                         // to the question, 0: there is none
    const wchar_t* after;
};
const EditRow editRows[] = {
    {L"abc", -1, {VK_DOWN, VK_RIGHT, VK_DOWN, VK_DOWN, VK_RETURN}, 0, L"abcO"},
    {L"abc", 1, {VK_DOWN, VK_RIGHT, VK_DOWN, VK_DOWN, VK_RETURN}, 0, L"aObc"},
    {L"abc", 2, {VK_DOWN, VK_RIGHT, VK_DOWN, VK_DOWN, VK_RETURN}, 0, L"abcO"},
    {L"abc", 1, {VK_DOWN, VK_DOWN, VK_RETURN}, 0, L"ac"},
    {L"abc", 1, {VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN}, IDNO, L"abc"},
    {L"abc", 1, {VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN}, IDYES, L""},
    {L"abc", 1, {VK_ESCAPE}, 0, L"abc"},
};

TEST_F(EffectChain, IsEditedByTheMenu) {
    for (const EditRow& row : editRows) {
        SCOPED_TRACE(&row - editRows);
        Steps steps{Select(row.selected)};
        AddMenuKeys(steps, row.keys);
        if (XString(row.after).FindChar(L'O'))
            steps.push_back(Close(L"Odd"));
        if (row.answer)
            steps.emplace_back([&] {
                const HWND box = FindBox(L"Clear All?");
                return TextOf(box) == L"Zephtone Tonemill" && AnswerBox(L"Clear All?", row.answer)();
            });
        steps.emplace_back([&] {
            const int added = XString(row.after).FindChar(L'O') - 1;
            return !OpenMenu() && !Dialog(L"Odd") &&
                   (added < 0 || SendMessageW(List(), LB_GETCURSEL, 0, 0) == added);
        });
        EXPECT_EQ(Run(ChainOf(row.before), std::move(steps)), ChainOf(row.after));
    }
}

// The items of a menu, the gray ones in brackets.
XString MenuText(HMENU menu) {
    XString text;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t name[64] = L"";
        GetMenuStringW(menu, static_cast<UINT>(i), name, 64, MF_BYPOSITION);
        const bool isGray = (GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION) & MF_GRAYED) != 0;
        text += (isGray ? L"(" + XString(name) + L")" : XString(name)) + L"|";
    }
    return text;
}

TEST_F(EffectChain, MenuOffersWhatThereIs) {
    struct Row {
        const wchar_t* chain;
        int selected;
        const wchar_t *items, *effects;
    };
    const Row rows[] = {
        {L"", -1, L"Add DSP Effect|(Remove Selected)|(Clear All)|(Save)|Load|",
         L"Batch Report|no effect|Odd|"},
        {L"a", 0, L"Add DSP Effect|Remove Selected|Clear All|Save|Load|", nullptr},
        {L"a", 0, nullptr, L"Install DSP Effects Now...|"}, // from here on no effects are there
    };
    const std::initializer_list<WPARAM> install = {VK_DOWN, VK_RIGHT, VK_RETURN};
    XString opened;
    seams.effects.openAddress = [&](const XString& address) { opened = address; };
    for (const Row& row : rows) {
        if (!row.items)
            DeleteTree(root + L"DSPs");
        SetCursorPos(0, 0);
        Steps steps{Select(row.selected)};
        AddMenuKeys(steps, {});
        steps.emplace_back([&] {
            if (row.items) {
                EXPECT_EQ(MenuText(OpenMenu()), XString(row.items));
            }
            if (row.effects) {
                EXPECT_EQ(MenuText(GetSubMenu(OpenMenu(), 0)), XString(row.effects));
            }
            const RECT menu = PlaceOf(FindWindowW(L"#32768", nullptr));
            const RECT button = PlaceOf(GetDlgItem(Form(), ID_EFFECT_ADD));
            EXPECT_EQ(menu.left, button.left); // below the button, for keyboards
            EXPECT_NEAR(menu.top, button.bottom, 2);
        });
        AddKeys(steps, row.items ? std::initializer_list<WPARAM>{VK_ESCAPE} : install);
        steps.emplace_back([] { return !OpenMenu(); });
        EXPECT_EQ(Run(ChainOf(row.chain), std::move(steps)), ChainOf(row.chain));
    }
    EXPECT_EQ(opened, XString(effectsAddress));
}

struct SettingsRow {
    const wchar_t* effect;
    const wchar_t* before; // as the chain text has it
    const wchar_t* typed;  // null: the panel has no field
    const wchar_t* after;
    UINT message = WM_COMMAND; // that closes it
};
constexpr SettingsRow settingsRows[] = {
    {report, L"-file={qt}C:\\a=b{qt}", L"D:\\c", L"-file={qt}D:\\c{qt}"},
    {report, L"", L"x y", L"-file={qt}x y{qt}", WM_CLOSE},
    {L"gone", L"-kept", nullptr, L""}, // a look at a missing effect loses its settings
    {L"no effect", L"-kept", nullptr, L""},
};

TEST_F(EffectChain, SettingsComeFromThePanel) {
    for (const SettingsRow& row : settingsRows) {
        SCOPED_TRACE(testing::PrintToString(XString(row.effect)));
        Steps steps{Select(1)};
        steps.emplace_back([] {
            const HWND button = FindWindowExW(List(), nullptr, L"Button", L"Settings");
            return button && PostMessageW(button, BM_CLICK, 0, 0);
        });
        steps.emplace_back([&] {
            const HWND dialog = Dialog(row.effect);
            const HWND panel = dialog ? FindWindowExW(dialog, nullptr, L"#32770", nullptr) : nullptr;
            if (!dialog || (row.typed && (!panel || GetParent(GetFocus()) != panel)))
                return false;
            EXPECT_FALSE(IsWindowEnabled(Form()));
            return !row.typed || SetWindowTextW(GetDlgItem(panel, ID_FILE), row.typed) != 0;
        });
        steps.push_back(Close(row.effect, row.message));
        steps.emplace_back([&] { return !Dialog(row.effect) && IsWindowEnabled(Form()); });
        const XString head = L"-dspeffect1=\"a=\" -dspeffect2=\"" + XString(row.effect) + L"=";
        EXPECT_EQ(Run(head + row.before + L"\"", std::move(steps)), head + row.after + L"\"");
    }
}

TEST_F(EffectChain, GoesToAFileAndComesBack) {
    const XString chain = L"-dspeffect1=\"gone=-a={qt}1{qt}\" -dspeffect2=\"Odd=\"";
    XString title, answer;
    const auto give = [&](OPENFILENAMEW& dialog) {
        title = dialog.lpstrTitle;
        EXPECT_EQ(std::memcmp(dialog.lpstrFilter, L"DSP Effect Selections (*.dspeffect)\0*.dspeffect\0", 98),
                  0);
        lstrcpynW(dialog.lpstrFile, answer, static_cast<int>(dialog.nMaxFile));
        return !answer.IsEmpty();
    };
    seams.effects.askSaveName = seams.effects.askOpenName = give;
    const auto run = [&](const XString& before, const wchar_t* name, std::initializer_list<WPARAM> keys,
                         bool isRefused = false) {
        answer = *name ? root + name : XString();
        title.Clear();
        Steps steps;
        AddMenuKeys(steps, keys);
        if (isRefused)
            steps.push_back(AnswerBox(L"Unable to open '" + EffectFileName(answer) + L"'", IDCANCEL));
        steps.emplace_back([&] { return !title.IsEmpty(); });
        return Run(before, std::move(steps));
    };
    const std::initializer_list<WPARAM> save = {VK_UP, VK_UP, VK_RETURN}, load = {VK_UP, VK_RETURN};
    EXPECT_EQ(run(chain, L"mine", save), chain);
    EXPECT_EQ(title, XString(L"Zephtone: Save DSP Effect Selections"));
    EXPECT_EQ(ReadEffectFile(root + L"mine.dspeffect"), chain);
    EXPECT_EQ(run(chain, L"no folder\\mine", save, true), chain);
    EXPECT_EQ(run(ChainOf(L"ab"), L"mine.dspeffect", load), chain);
    EXPECT_EQ(title, XString(L"Zephtone: Load DSP Effect Selections"));
    EXPECT_EQ(run(chain, L"", load), chain); // cancelled
    EXPECT_EQ(run(chain, L"no such file", load), XString());
}

FormDriver::Step Mouse(int row, DWORD flags) { // also below the last
    return [=] {
        RECT first{};
        SendMessageW(List(), LB_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&first));
        POINT point{40, first.top + (first.bottom - first.top) * (2 * row + 1) / 2};
        ClientToScreen(List(), &point);
        SetCursorPos(point.x, point.y);
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = flags;
        return SendInput(1, &input, sizeof input) == 1;
    };
}

TEST_F(EffectChain, RowsAreDraggedAndClickedByTheMouse) {
    const auto isLast = [] { // the first one, dragged
        wchar_t text[64] = L"";
        SendMessageW(List(), LB_GETTEXT, 2, reinterpret_cast<LPARAM>(text));
        return XString(text).StartsWith(L"a");
    };
    const auto isMenuAtCursor = [] {
        POINT cursor{};
        GetCursorPos(&cursor);
        const RECT menu = PlaceOf(FindWindowW(L"#32768", nullptr));
        return OpenMenu() && SendMessageW(List(), LB_GETCURSEL, 0, 0) == 0 &&
               std::abs(menu.left - cursor.x) < 3 && std::abs(menu.top - cursor.y) < 3 &&
               PostMessageW(Form(), WM_KEYDOWN, VK_ESCAPE, 0);
    };
    const Steps steps{
        Mouse(0, MOUSEEVENTF_LEFTDOWN),
        [] { return GetCapture() == List(); },
        Mouse(1, MOUSEEVENTF_MOVE),
        Mouse(2, MOUSEEVENTF_MOVE),
        Mouse(3, MOUSEEVENTF_MOVE), // below the last
        Mouse(3, MOUSEEVENTF_LEFTUP),
        isLast,
        Mouse(0, MOUSEEVENTF_RIGHTDOWN),
        Mouse(0, MOUSEEVENTF_RIGHTUP),
        isMenuAtCursor,
        [] { return !OpenMenu(); },
    };
    EXPECT_EQ(Run(ChainOf(L"abc"), steps), ChainOf(L"bca"));
}

TEST_F(EffectChain, DialogsHoldNothingAfterwards) {
    const auto show = [&](const wchar_t* effect) {
        const FormDriver driver({Close(effect)});
        return ShowEffectSettings(nullptr, EffectLibraryPath(effect), L"-file=\"a\"");
    };
    EXPECT_EQ(show(L"Odd"), XString());
    wchar_t ended[2] = L"";
    EXPECT_EQ(GetEnvironmentVariableW(L"TM_FAKE_ENDED", ended, 2), 1U);
    EXPECT_EQ(show(report), XString(L"-file=\"a\""));
    ExpectNothingLeftBy(25, [&] {
        (void)show(report);
        (void)show(L"Odd");
    });
}

} // namespace
