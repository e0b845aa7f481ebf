// The configuration form in its modal loop, and what it writes.
#include "../forms/FormDriver.h"

#include "config/frmConfig.h"
#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"
#include "foundation/XTempFile.h"
#include "host/CodecHandler.h"
#include "host/Settings.h"
#include "resources/ids.h"

#include <gtest/gtest.h>

namespace {

class Config : public testing::Test {
protected:
    using Step = FormDriver::Step;

    Config() {
        // Encoders Alpha and Beta, and NoFolder and Neither, which write into no chosen folder.
        SetPluginRoot(ProgramFolder() + L"..\\forms\\setup_fakes\\");
        seams.areEntriesRegistered = [this] { return isRegistered; };
        seams.registerEntries = [this](bool wanted) {
            asked += wanted ? L"+" : L"-";
            return wanted;
        };
        seams.chooseFolder = [this](const wchar_t*, HWND, const XString& selected) {
            folderShown = selected;
            return folderChosen;
        };
    }
    ~Config() override { SetPluginRoot(nullptr); }

    void Run(std::vector<Step> steps, int button = 0) {
        steps.insert(steps.begin(), [] { return Form() && IsWindowVisible(Form()); });
        if (button)
            steps.push_back(Press(button));
        const FormDriver driver(std::move(steps));
        const frmConfig form(seams);
        EXPECT_TRUE(driver.IsDone()) << driver.StepsDone();
    }
    static HWND Form() { return FindForm(ID_CONFIG_TEMP); }
    static HWND At(int id) { return GetDlgItem(Form(), id); }
    static LRESULT Row(int list) { return SendMessageW(At(list), CB_GETCURSEL, 0, 0); }
    static bool IsChecked(int id) { return IsDlgButtonChecked(Form(), id) == BST_CHECKED; }
    static Step Press(int button) {
        return [button] {
            return PostMessageW(Form(), WM_COMMAND, static_cast<WPARAM>(button),
                                reinterpret_cast<LPARAM>(At(button))) != 0;
        };
    }
    static Step Check(int box) {
        return [box] { return SendMessageW(At(box), BM_CLICK, 0, 0) == 0; };
    }
    static Step Type(int edit, const XString& text) {
        return [edit, text] { return SetWindowTextW(At(edit), text) != 0; };
    }
    static Step Choose(int list, int row) {
        return [=] { return SendMessageW(At(list), CB_SETCURSEL, static_cast<WPARAM>(row), 0) == row; };
    }
    static XString Written() {
        const clConfig config = ReadConfig();
        XString text = config.tempFolder + (config.allowProfiles ? L" profiles " : L" none ") +
                       DecimalText(config.timeFormat);
        XStringArray keys;
        RegEnumSubkeys(nullptr, SettingsPath(), keys);
        return text + (keys.Contains(L"DecoderCache64", true) ? L" cache" : L"");
    }

    TestSettings settings;
    clConfigSeams seams;
    bool isRegistered = false;
    XString asked, folderShown, folderChosen;
};

TEST_F(Config, ShowsWhatIsStoredAndWritesOnOKAlone) {
    const XString temp = StripBackslash(TempFolder());
    WriteConfig({temp, true, 3});
    RegWriteString(L"C:\\x.dll", L".mp3", nullptr, SettingsPath(Setting::keyDecoderCache));
    const std::vector<Step> change = {
        [&] {
            return TextOf(Form(), ID_CONFIG_TEMP) == temp && IsChecked(ID_CONFIG_PROFILES) &&
                   Row(ID_CONFIG_TIME) == 2 && !IsChecked(ID_CONFIG_EXPLORER) &&
                   !IsChecked(ID_CONFIG_OUTPUT_SET) && !IsWindowEnabled(At(ID_CONFIG_OUTPUT));
        },
        Type(ID_CONFIG_TEMP, L" " + temp + L"\\tm config \u00e4 "),
        Check(ID_CONFIG_PROFILES),
        Check(ID_CONFIG_EXPLORER),
        Check(ID_CONFIG_FORGET),
        Choose(ID_CONFIG_TIME, 3),
    };
    Run(change, IDCANCEL);
    EXPECT_EQ(Written(), temp + L" profiles 3 cache");
    EXPECT_EQ(asked, XString());
    Run(change, IDOK);
    EXPECT_EQ(Written(), temp + L"\\tm config \u00e4 none 4");
    EXPECT_EQ(asked, XString(L"+"));
    EXPECT_TRUE(DeleteTree(temp + L"\\tm config \u00e4"));
    // Nothing is changed: nothing is registered anew. A number without a meaning is shown as the first.
    isRegistered = true;
    RegWriteDword(7, Setting::unitsTime, nullptr, SettingsPath(Setting::keyUnits));
    Run({Type(ID_CONFIG_TEMP, L""), [] { return Row(ID_CONFIG_TIME) == 0; }}, IDOK);
    EXPECT_EQ(Written(), XString(L" none 1"));
    EXPECT_EQ(asked, XString(L"+"));
    Run({Check(ID_CONFIG_EXPLORER), Press(IDOK),
         AnswerBox(L"Not all of the entries in Explorer's menus could be changed.", IDOK)});
    EXPECT_EQ(asked, XString(L"+-"));
}

TEST_F(Config, RefusesFoldersThatCannotBeUsed) {
    XTempFile file;
    ASSERT_TRUE(file.MakeNew());
    const XString below = file + L"\\below";
    const auto refused = [](const XString& folder) {
        return L"No file can be written into the folder '" + folder + L"'.";
    };
    constexpr wchar_t noDrive[] =
        L"The output folder has to begin with a drive, such as 'C:\\Converted Music', "
        L"or with a folder such as 'Music'.";
    folderChosen = L"C:\\chosen";
    Run({Type(ID_CONFIG_TEMP, below), Press(IDOK), AnswerBox(refused(below), IDOK),
         [] { return GetFocus() == At(ID_CONFIG_TEMP); }, Type(ID_CONFIG_TEMP, L"temp"), Press(IDOK),
         AnswerBox(refused(L"temp"), IDOK), Check(ID_CONFIG_OUTPUT_SET),
         Type(ID_CONFIG_OUTPUT, L"Musical\\x"), Press(IDOK), AnswerBox(noDrive, IDOK),
         Type(ID_CONFIG_OUTPUT, L""), Press(IDOK), AnswerBox(noDrive, IDOK), Press(ID_CONFIG_OUTPUT_BROWSE),
         [] { return TextOf(Form(), ID_CONFIG_OUTPUT) == L"C:\\chosen"; },
         // A cancelled browse, from the folder that stands there, leaves it.
         [this] { folderChosen = L""; }, Press(ID_CONFIG_TEMP_BROWSE),
         [this] { return folderShown == L"temp"; }, [] { return TextOf(Form(), ID_CONFIG_TEMP) == L"temp"; }},
        IDCANCEL);
    EXPECT_EQ(Written(), XString(L" none 1"));
}

void Store(const wchar_t* item, std::uint32_t mode, const wchar_t* folder) {
    clRecipe recipe;
    recipe.mode = mode;
    recipe.folder = folder;
    WriteRecipe(item, recipe);
}

TEST_F(Config, SetsTheOutputFolderOfItems) {
    constexpr wchar_t profile[] = L"Small \"Beta\"";
    constexpr wchar_t orphan[] = L"Old \"Gone\"";
    const auto stored = [&](const wchar_t* item) {
        const XString key = EncoderKeyPath(item);
        return DecimalText(RegReadDword(Setting::outputMode, nullptr, key)) + L" " +
               RegReadString(Setting::outputFolder, nullptr, key);
    };
    struct Row {
        clFolderScope scope;
        const wchar_t *alpha, *beta, *profile;
    };
    constexpr Row rows[] = {
        {scopeWithoutFolder, L"1 C:\\New\\", L"0 D:\\Old\\", L"2 D:\\Old\\"},
        {scopeAll, L"1 C:\\New\\", L"1 C:\\New\\", L"2 C:\\New\\"},
    };
    for (const Row& row : rows) {
        RegDeleteTree(nullptr, SettingsPath(), L"zTMCodec");
        Store(L"Beta", outputSourceFolder, L"D:\\Old\\");
        Store(profile, outputDynamic, L"D:\\Old\\");
        Store(orphan, outputDynamic, L"D:\\Old\\");
        Run({Check(ID_CONFIG_OUTPUT_SET), Choose(ID_CONFIG_OUTPUT_SCOPE, row.scope),
             Type(ID_CONFIG_OUTPUT, L"C:\\New")},
            IDOK);
        EXPECT_EQ(stored(L"Alpha"), XString(row.alpha));
        EXPECT_EQ(stored(L"Beta"), XString(row.beta));
        EXPECT_EQ(stored(profile), XString(row.profile));
        EXPECT_EQ(stored(L"NoFolder"), XString(L"0 "));
        EXPECT_EQ(stored(orphan), XString(L"2 D:\\Old\\"));
    }
}

} // namespace
