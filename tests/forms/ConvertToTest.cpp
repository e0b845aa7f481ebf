// Items of the set-up form and what belongs to them: settings, output location, naming, effects.
#include "../support/HandleReach.h"
#include "SetUpFixture.h"
#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"
#include "host/PluginFolders.h"
#include "naming/NamedFolders.h"

namespace {

constexpr wchar_t chain[] = L"-dspeffect1=\"Echo=-a {qt}b{qt}\" -dspeffect2=\"Gone=\"";

XString ClassName(HWND window) {
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return name;
}

class ConvertTo : public SetUpForm {
protected:
    ConvertTo() { RegWriteString(L"Alpha", Setting::lastCodec); }
    static bool ShowsItem(const wchar_t* settings, int radio, const wchar_t* folder, const wchar_t* naming) {
        return TextOf(Form(), panelEdit) == settings && IsChecked(radio) &&
               Chosen(ID_FOLDER_LIST) == folder && TextOf(Form(), ID_NAMING) == naming;
    }
    // The window that this process shows besides those of the forms' thread: a tip. Null if there is none.
    static HWND Tip() {
        HWND tip = nullptr;
        EnumWindows(
            [](HWND window, LPARAM parameter) {
                DWORD process = 0;
                const DWORD thread = GetWindowThreadProcessId(window, &process);
                if (process == GetCurrentProcessId() && thread != GetCurrentThreadId() &&
                    IsWindowVisible(window))
                    *reinterpret_cast<HWND*>(parameter) = window;
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&tip));
        return tip;
    }
};

TEST_F(ConvertTo, EachItemKeepsItsFiveValues) {
    Store(L"Beta", L"beta 1", 2, L"E:\\out\\", L"[title]", chain);
    const bool convert =
        Run({[] {
                 return ShowsItem(L"", ID_OUTPUT_ORIGINAL, FolderDisplayName(GetSpecialFolder(13), false),
                                  defaultNaming);
             },
             Type(panelEdit, L"alpha 2"), Press(ID_OUTPUT_FOLDER),
             [this] {
                 folderChosen = L"D:\\new folder";
                 return IsWindowEnabled(At(ID_FOLDER_BROWSE));
             },
             Press(ID_FOLDER_BROWSE), [] { return Chosen(ID_FOLDER_LIST) == L"D:\\new folder\\"; },
             Type(ID_NAMING, L"[album]"), Choose(L"Beta"),
             [] { return ShowsItem(L"beta 1", ID_OUTPUT_DYNAMIC, L"E:\\out\\", L"[title]"); },
             [] {
                 const clRecipe alpha = ReadRecipe(L"Alpha");
                 EXPECT_EQ(alpha.encoderSettings, XString(L"alpha 2"));
                 EXPECT_EQ(alpha.mode, 1U);
                 EXPECT_EQ(alpha.folder, XString(L"D:\\new folder\\"));
                 EXPECT_EQ(alpha.naming, XString(L"[album]"));
                 EXPECT_EQ(alpha.effects, XString());
             },
             Choose(L"Alpha"),
             [] { return ShowsItem(L"alpha 2", ID_OUTPUT_FOLDER, L"D:\\new folder\\", L"[album]"); },
             Choose(L"Beta"), Until([] { return TextOf(Form(), panelEdit) == L"beta 1"; })},
            IDOK);
    EXPECT_TRUE(convert);
    EXPECT_EQ(folderShown, StripBackslash(GetSpecialFolder(13)));
    EXPECT_EQ(RegReadString(Setting::lastCodec), XString(L"Beta"));
    const clRecipe beta = ReadRecipe(L"Beta");
    EXPECT_EQ(beta.mode, 2U);
    EXPECT_EQ(beta.effects, XString(chain));
}

TEST_F(ConvertTo, OnlyTheCloseBoxDropsChanges) {
    struct {
        const wchar_t* settings;
        UINT message;
        WPARAM command;
        bool convert, kept;
    } const rows[] = {{L"by cancel", WM_COMMAND, IDCANCEL, false, true},
                      {L"by close", WM_CLOSE, 0, false, false},
                      {L"by convert", WM_COMMAND, IDOK, true, true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(XString(row.settings)));
        RegWriteString(L"", Setting::lastCodec);
        const XString before = ReadRecipe(L"Alpha").encoderSettings;
        EXPECT_EQ(Run({Choose(L"Alpha"), Until([] { return At(panelEdit) != nullptr; }),
                       Type(panelEdit, row.settings),
                       [&] { return PostMessageW(Form(), row.message, row.command, 0) != 0; }}),
                  row.convert);
        EXPECT_EQ(ReadRecipe(L"Alpha").encoderSettings, row.kept ? XString(row.settings) : before);
        EXPECT_EQ(RegReadString(Setting::lastCodec), XString(row.kept ? L"Alpha" : L""));
    }
}

TEST_F(ConvertTo, TheSameItemsPanelIsNotOpenedAgain) {
    HWND panel = nullptr;
    Run({[&] {
             panel = At(panelEdit);
             return panel && SetWindowTextW(panel, L"typed");
         },
         Choose(L"Alpha"), // handled before the next step, as both are posted
         [&] {
             EXPECT_EQ(At(panelEdit), panel);
             EXPECT_EQ(TextOf(panel), XString(L"typed"));
         }},
        IDCANCEL);
}

TEST_F(ConvertTo, EncodersRuleOutputsOut) {
    Store(L"NoFolder", L"", 2, L"E:\\", L"x", L"");
    Run({Choose(L"NoFolder"), Until([] { return At(panelEdit) && Chosen(ID_FOLDER_LIST) == L"E:\\"; }),
         [] {
             for (const int id : {ID_OUTPUT_ORIGINAL, ID_OUTPUT_FOLDER, ID_OUTPUT_DYNAMIC})
                 EXPECT_EQ(IsChecked(id), id == ID_OUTPUT_ORIGINAL) << id;
             EXPECT_FALSE(IsWindowEnabled(At(ID_FOLDER_LIST)));
         }},
        IDCANCEL);
    EXPECT_EQ(ReadRecipe(L"NoFolder").mode, 0U);
}

TEST_F(ConvertTo, ABalloonPointsAtWhatTheItemChanged) {
    struct {
        std::uint32_t mode;
        const wchar_t* folder;
        const wchar_t* effects;
        int control; // 0: no balloon
    } const rows[] = {{0, L"E:\\", L"", 0},
                      {2, L"E:\\", chain, ID_OUTPUT_FOLDER},
                      {0, L"F:\\", L"", ID_OUTPUT_FOLDER},
                      {0, L"E:\\", chain, ID_OPTIONS_TAB}};
    for (const auto& row : rows) {
        Store(L"Alpha", L"a", 0, L"E:\\", L"x", L"");
        Store(L"Beta", L"b", row.mode, row.folder, L"x", row.effects);
        RegWriteString(L"Alpha", Setting::lastCodec);
        Run({[] {
                 EXPECT_EQ(Tip(), nullptr); // none at the start
             },
             Choose(L"Beta"), Until([] { return TextOf(Form(), panelEdit) == L"b"; }),
             [&] {
                 EXPECT_EQ(Tip() != nullptr, row.control != 0) << row.control;
                 if (row.control) {
                     EXPECT_EQ(PlaceOf(Tip()).left, PlaceOf(At(row.control)).left + 30) << row.control;
                     EXPECT_NEAR(PlaceOf(Tip()).bottom, PlaceOf(At(row.control)).top + 10, 2) << row.control;
                 }
             }},
            IDCANCEL);
    }
}

TEST_F(ConvertTo, FoldersComeBackNewestFirst) {
    Store(L"Alpha", L"", 1, L"D:\\2\\", L"", L"");
    const wchar_t* stored[] = {L"D:\\0\\", L"\\\\server\\1\\", L"D:\\2\\", L"",        L"D:\\4\\",
                               L"D:\\5\\", L"D:\\6\\",         L"D:\\7\\", L"D:\\8\\", L"D:\\9\\"};
    for (int i = 0; i < 10; ++i)
        RegWriteString(stored[i], Setting::lastFolder + DecimalText(i));
    const auto texts = [] {
        XString all;
        wchar_t text[300] = L"";
        const HWND list = At(ID_FOLDER_LIST);
        for (WPARAM i = 0; SendMessageW(list, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text)) >= 0; ++i)
            all += text;
        return all;
    };
    Run({[&] {
             EXPECT_EQ(texts(), XString(L"D:\\2\\D:\\0\\D:\\4\\D:\\5\\D:\\6\\D:\\7\\D:\\8\\D:\\9\\"));
             folderChosen = L"\\\\server\\new";
         },
         Press(ID_FOLDER_BROWSE), Until([] { return Chosen(ID_FOLDER_LIST) == L"\\\\server\\new\\"; })},
        IDOK);
    EXPECT_EQ(RegReadString(Setting::lastFolder + DecimalText(0)), XString(L"\\\\server\\new\\"));
    EXPECT_EQ(RegReadString(Setting::lastFolder + DecimalText(1)), XString(L"D:\\2\\"));
    EXPECT_EQ(RegReadString(Setting::lastFolder + DecimalText(8)), XString(L"D:\\9\\"));
    Run({[&] {
            EXPECT_EQ(texts().Left(5), XString(L"\\\\ser")); // the item's own folder all the same
        }},
        IDCANCEL);
}

TEST_F(ConvertTo, LongTextsAreKept) {
    XString naming;
    for (int i = 0; i < 1111; ++i)
        naming += L"[title] - ";
    naming = naming.Left(longestNaming);
    Store(L"Alpha", L"", 2, L"D:\\a folder with a very long name\\and one below it with a long name, too\\",
          naming, L"");
    Run({[] {
            SendMessageW(At(ID_NAMING), EM_SETSEL, 0, 0);
            SendMessageW(At(ID_NAMING), WM_CHAR, L'x', 0); // no room
        }},
        IDOK);
    EXPECT_EQ(ReadRecipe(L"Alpha").naming, naming);
}

// Tab leads from the list of encoders into the panel, and from there down the form.
TEST_F(ConvertTo, TabFollowsTheForm) {
    Store(L"Alpha", L"", 2, L"E:\\", L"x", L"");
    Run({[] {
            XString order;
            HWND stop = At(ID_ENCODER_LIST);
            for (int i = 0; i < 12; ++i) {
                order += DecimalText(GetDlgCtrlID(stop)) + L" ";
                stop = GetNextDlgTabItem(Form(), stop, FALSE);
                if (GetParent(stop) == Form() && ClassName(stop).EqualsNoCase(L"ListBox")) {
                    order += L"list ";
                    stop = GetNextDlgTabItem(Form(), stop, FALSE);
                }
            }
            EXPECT_EQ(order, XString(L"1001 5000 1008 1006 1007 1039 1011 list 1040 1002 1 2 1001 "));
        }},
        IDCANCEL);
}

TEST_F(ConvertTo, ShowsItsHelp) {
    Run({[] { return PostMessageW(Form(), WM_SYSCOMMAND, SC_CONTEXTHELP, 0) != 0; },
         Until([this] { return opened.Count() == 1; }),
         [] {
             BYTE keys[256]{};
             keys[VK_F1] = 0x80;
             SetKeyboardState(keys);
             SendMessageW(Form(), WM_HELP, 0, 0);
             keys[VK_F1] = 0;
             SetKeyboardState(keys);
             SendMessageW(Form(), WM_HELP, 0, 0); // of the question mark
         }},
        IDCANCEL);
    ASSERT_EQ(opened.Count(), 2);
    for (const XString& document : opened)
        EXPECT_EQ(document, ProgramFolder() + L"Help\\zTM\\zTM.htm");
}

TEST_F(ConvertTo, HoldsNoHandlesOfEarlierShowings) {
    Store(L"Beta", L"b", 2, L"E:\\", L"x", chain);
    const auto show = [this] {
        RegWriteString(L"Alpha", Setting::lastCodec);
        Run({Choose(L"Beta"), Until([] { return TextOf(Form(), panelEdit) == L"b"; })}, IDOK);
    };
    for (int i = 0; i < 4; ++i)
        show();
    ExpectNothingLeftBy(20, show);
}

} // namespace
