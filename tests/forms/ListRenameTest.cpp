// The list of files to convert inside its modal loop, with real keys, on encoders of the tests' own.
#include "forms/review/frmListNRename.h"

#include "../support/HandleReach.h"
#include "ListForm.h"
#include "forms/review/FileRows.h"
#include "foundation/XFileSystem.h"
#include "host/CodecHandler.h"
#include "host/Settings.h"
#include "naming/NamedFolders.h"
#include "resources/ids.h"

#include <gtest/gtest.h>

namespace {

class ListRename : public ListForm<ID_FILE_LIST> {
protected:
    ListRename() { SetPluginRoot(ProgramFolder() + L"list_fakes\\"); }
    ~ListRename() override { SetPluginRoot(nullptr); }

    clFileItem& Add(const wchar_t* source, std::uint64_t lengthMs = 0, std::uint16_t channels = 2) {
        clFileItem* file = files.Append();
        file->sourcePath = source;
        file->format.lengthMs = lengthMs;
        file->format.channels = channels;
        return *file;
    }
    int Show(std::vector<Step> steps, DWORD limitMs = 20000) {
        steps.insert(steps.begin(), IsOpen);
        const FormDriver driver(std::move(steps), limitMs);
        int result = 7;
        { const frmListNRename form(result, nullptr, files, encoder, folder, settings, naming); }
        EXPECT_TRUE(driver.IsDone()) << driver.StepsDone();
        return result;
    }
    static XString Summary() { return TextOf(Form(), ID_LIST_SUMMARY); }
    static bool IsComplete() { return Summary().Find(L"Estimated Total") > 0; }
    // Renames the next row; the focus is to stand on the one before.
    static void Rename(std::vector<Step>& steps, const wchar_t* text) {
        steps.insert(steps.end(),
                     {PressKey(VK_DOWN), PressKey(VK_F2), Type(text), PressKey(VK_RETURN), IsNotEditing});
    }
    static XString Row(int row) {
        XString text = Cell(row, 0);
        for (int column = 1; column < 5; ++column)
            text += L"|" + Cell(row, column);
        return text;
    }
    static int Icon(int row, int column) {
        LVITEMW item{};
        item.mask = LVIF_IMAGE;
        item.iItem = row;
        item.iSubItem = column;
        ListView_GetItem(List(), &item);
        return item.iImage;
    }
    XString Records() const {
        XString text;
        for (const clFileItem& file : files)
            text += file.outputPath + L" " + DecimalText(file.skipFlag) + L"|";
        return text;
    }

    TestSettings ownSettings;
    clFileList files;
    XString encoder = L"Plain", folder = L"C:\\Out", settings, naming;
};

} // namespace

TEST_F(ListRename, ShowsWhatWillBeMade) {
    Add(L"C:\\music\\a.aaa");
    Add(L"Q:\\x.y\\known.zzz", 65000, 1).skipFlag = 0;
    Add(L"Q:\\refused!.aaa");
    Add(L"track01.IGNORE");
    Add(L"D:\\other\\a.aaa").skipFlag = 3; // the name of the first
    constexpr wchar_t start[] = L"Converting 4 Files to Plain\t\tEstimated Total: 9.31 GB\t\tFree Space: ";
    EXPECT_EQ(Show({IsComplete,
                    [&] {
                        EXPECT_EQ(TextOf(Form()), XString(L"Tonemill: List & Rename Files"));
                        EXPECT_TRUE(IsZoomed(Form()));
                        EXPECT_EQ(Row(0), XString(L"C:\\Out\\a|C:\\music\\a|aaa File|1388:53:20|4.66 GB"));
                        EXPECT_EQ(Row(1), XString(L"C:\\Out\\known|Q:\\x.y\\known|zzz File|1:05|"));
                        EXPECT_EQ(Row(2), XString(L"C:\\Out\\refused!|Q:\\refused!|aaa File||"));
                        EXPECT_EQ(Row(3), XString(L"C:\\Out\\track01|< Fake >||1388:53:20|4.66 GB"));
                        EXPECT_EQ(Row(4), XString(L"C:\\Out\\a|D:\\other\\a|aaa File|1388:53:20|4.66 GB"));
                        EXPECT_GE(Icon(0, 0), 0);
                        EXPECT_GE(Icon(0, 1), 0);
                        EXPECT_TRUE(IsChecked(0) && IsChecked(3) && !IsChecked(4));
                        EXPECT_TRUE(Summary().StartsWith(start)) << Summary().Text();
                        const XString drive = L" on " + FolderDisplayName(L"C:\\", false);
                        EXPECT_EQ(Summary().Right(drive.Count()), drive);
                        EXPECT_TRUE(IsWindowVisible(GetDlgItem(Form(), ID_RENAME_HINT)));
                    },
                    Press(IDOK)}),
              1);
    EXPECT_EQ(Records(), XString(L" 0| 0| 0| 0| 1|"));

    files.Clear();
    Add(L"\\\\server\\share\\a.zzz", 7000).outputPath = L"\\\\server\\share\\renamed";
    folder.Clear();
    settings = L"double";
    RegWriteDword(2, Setting::unitsTime, nullptr, SettingsPath(Setting::keyUnits));
    EXPECT_EQ(Show({IsComplete,
                    [] {
                        EXPECT_EQ(Row(0), XString(L"\\\\server\\share\\renamed|\\\\server\\share\\a|zzz "
                                                  L"File|00:00:07|14 KB"));
                        EXPECT_EQ(Summary(),
                                  XString(L"Converting 1 File to Plain\t\tEstimated Total: 14 KB"));
                    },
                    [] { return PostMessageW(Form(), WM_CLOSE, 0, 0) != 0; }}),
              0);
    EXPECT_EQ(Records(), XString(L"\\\\server\\share\\renamed 0|"));
}

TEST_F(ListRename, NamesAndTotalWaitForTheTags) {
    const XKernelHandle gate(CreateEventW(nullptr, TRUE, FALSE, L"tm-list-gate"));
    Add(L"Q:\\1.aaa");
    Add(L"Q:\\2=.aaa");
    naming = L"[title] - [origfilename]";
    std::vector<Step> steps = {[] { return Cell(0, 0) == L"C:\\Out\\Blue - 1"; },
                               [] {
                                   EXPECT_EQ(Row(1), XString(L"|Q:\\2=|||"));
                                   EXPECT_EQ(Summary(), XString(L"Converting 2 Files to Plain"));
                               }};
    AskRowMenu(steps, 3); // no unique names yet
    steps.insert(steps.end(), {[&] {
                                   EXPECT_EQ(Cell(0, 0), XString(L"C:\\Out\\Blue - 1"));
                                   return SetEvent(gate.Get()) != 0;
                               },
                               IsComplete,
                               [] {
                                   EXPECT_EQ(Cell(1, 0), XString(L"C:\\Out\\Blue - 2="));
                                   EXPECT_EQ(Summary().Find(L"Free Space"), 0); // no name at the start
                               },
                               Press(IDOK)});
    EXPECT_EQ(Show(std::move(steps)), 1);
    EXPECT_EQ(Records(), XString(L" 0| 0|"));
}

TEST_F(ListRename, IsDrivenByKeysAlone) {
    for (const wchar_t* path : {L"Q:\\1.zzz", L"Q:\\2.zzz", L"Q:\\3.zzz", L"Q:\\4.zzz", L"Q:\\5.zzz"})
        Add(path, 1024);
    std::vector<Step> steps = {IsComplete, PressKey(VK_HOME), PressKey(VK_SPACE), [] {
                                   return !IsChecked(0) &&
                                          Summary().StartsWith(
                                              L"Converting 4 Files to Plain\t\tEstimated Total: 4 KB");
                               }};
    Rename(steps, L"D:\\same");
    Rename(steps, L"D:\\same");
    Rename(steps, L"");
    Rename(steps, L"C:\\Out\\5");
    std::vector<Step> cancelled = steps;
    cancelled.push_back(PressKey(VK_ESCAPE));
    EXPECT_EQ(Show(cancelled), 0);
    EXPECT_EQ(Records(), XString(L" 0| 0| 0| 0| 0|"));
    steps.push_back(PressKey(VK_RETURN));
    EXPECT_EQ(Show(steps), 1);
    EXPECT_EQ(Records(), XString(L" 1|D:\\same 0|D:\\same 0| 0| 0|"));

    // A second time: the rename stands there, and can be taken back.
    steps = {IsComplete, PressKey(VK_HOME)};
    steps.emplace_back([] { return Cell(1, 0) == L"D:\\same" && !IsChecked(0) && IsChecked(1); });
    Rename(steps, L"C:\\Out\\2");
    steps.push_back(PressKey(VK_RETURN));
    EXPECT_EQ(Show(steps), 1);
    EXPECT_EQ(Records(), XString(L" 1| 0|D:\\same 0| 0| 0|"));
}

TEST_F(ListRename, MenuChangesAllRows) {
    Add(L"Q:\\1.zzz", 1024);
    Add(L"Q:\\2.zzz", 1024);
    std::vector<Step> steps = {IsComplete};
    AskRowMenu(steps, 2);
    steps.emplace_back(
        [] { return !IsChecked(0) && !IsChecked(1) && Summary() == L"Converting 0 Files to Plain"; });
    AskRowMenu(steps, 1);
    steps.emplace_back([] { return IsChecked(0) && IsChecked(1) && IsComplete(); });
    AskRowMenu(steps, 3);
    steps.emplace_back([] { return Cell(1, 0).Count() > 10; });
    steps.push_back(Press(IDOK));
    EXPECT_EQ(Show(steps), 1);
    EXPECT_EQ(files[0].outputPath.Left(11), XString(L"C:\\Out\\1 - "));
    EXPECT_EQ(files[0].outputPath.From(9), files[1].outputPath.From(9)); // one moment for all
    EXPECT_EQ(files[0].outputPath.Count(), 8 + UniqueSuffix().Count());
}

TEST_F(ListRename, AnEncoderWithoutFilesHasNoNames) {
    encoder = L"Burn";
    Add(L"Q:\\1.zzz", 1024);
    std::vector<Step> steps = {IsComplete, PressKey(VK_HOME), PressKey(VK_F2), [] {
                                   EXPECT_FALSE(IsEditing());
                                   EXPECT_EQ(Cell(0, 0), XString(L"< Burn >"));
                                   EXPECT_EQ(Summary(),
                                             XString(L"Converting 1 File to Burn\t\tEstimated Total: 1 KB"));
                                   EXPECT_FALSE(IsWindowVisible(GetDlgItem(Form(), ID_RENAME_HINT)));
                               }};
    AskRowMenu(steps, 3);
    steps.push_back(Press(IDOK));
    EXPECT_EQ(Show(steps), 1);
    EXPECT_EQ(Records(), XString(L" 0|"));

    encoder = L"No such encoder"; // all but estimates and the extension works
    EXPECT_EQ(Show({[] { return Row(0) == L"C:\\Out\\1|Q:\\1|zzz File|0:01|"; }, Press(IDCANCEL)}), 0);
}

TEST_F(ListRename, LaysItselfOutAtAnySize) {
    Add(L"Q:\\1.zzz", 1024);
    Show({[&] {
              EXPECT_EQ(CountPlacedControls(Form(), 1200, 700), 6U); // maximised: without the corner
              return ShowWindow(Form(), SW_RESTORE) != 0;
          },
          [&] {
              EXPECT_EQ(CountPlacedControls(Form(), 1100, 700), 7U);
              EXPECT_EQ(CountPlacedControls(Form(), 612, 300), 7U);
              EXPECT_EQ(CountPlacedControls(Form(), 590, 300), 5U); // without the hint
              EXPECT_EQ(CountPlacedControls(Form(), 10, 10), 5U);   // the least size
          },
          Press(IDCANCEL)});
}

// With a lock or a redraw per row this takes minutes.
TEST_F(ListRename, HandlesAHundredThousandFiles) {
    constexpr wchar_t const* extensions[] = {L".wav", L".mp3", L".flac"};
    constexpr int count = 100000;
    for (int i = 0; i < count; ++i)
        Add(L"Q:\\A folder\\A song with a name " + DecimalText(i) + extensions[i % 3], 200000)
            .SetStage(stageFormat);
    DWORD start = GetTickCount();
    DWORD last = 0, longest = 0;
    const auto since = [&] { return GetTickCount() - std::exchange(start, GetTickCount()); };
    EXPECT_EQ(Show({[&] {
                        EXPECT_LT(since(), 15000U); // to open
                        for (const WPARAM key : {VK_END, VK_PRIOR, VK_HOME}) {
                            SendMessageW(List(), WM_KEYDOWN, key, 1);
                            UpdateWindow(List());
                        }
                        EXPECT_LT(since(), 3000U);
                    },
                    [&] {
                        const DWORD now = GetTickCount();
                        longest = last && now - last > longest ? now - last : longest;
                        last = now;
                        return IsComplete();
                    },
                    [&] {
                        EXPECT_LT(longest, 2000U);
                        SendWithControl(List(), 'A');
                        EXPECT_EQ(ListView_GetSelectedCount(List()), 100000U);
                        since();
                        SendMessageW(List(), WM_KEYDOWN, VK_SPACE, 1);
                    },
                    [] { return Summary() == L"Converting 0 Files to Plain"; },
                    [&] {
                        EXPECT_LT(since(), 40000U);
                        return PostMessageW(Form(), WM_COMMAND, IDOK, 0) != 0;
                    }},
                   120000),
              1);
    EXPECT_LT(since(), 30000U); // to take over and close
    EXPECT_EQ(files[0].skipFlag + files[count - 1].skipFlag, 2U);
}

// The thread that reads ahead is in the middle of a long list.
TEST_F(ListRename, ClosesWhileFilesAreRead) {
    for (int i = 0; i < 3000; ++i)
        Add(L"Q:\\" + DecimalText(i) + L".none");
    DWORD pressed = 0;
    Show({[&] {
        pressed = GetTickCount();
        return PostMessageW(Form(), WM_COMMAND, IDCANCEL, 0) != 0;
    }});
    EXPECT_LT(GetTickCount() - pressed, 3000U);
    EXPECT_EQ(files[2999].Stage(), stageNothing);
}

TEST_F(ListRename, FiftyShowingsLeaveNothingBehind) {
    Add(L"Q:\\1.zzz", 1024);
    Add(L"track01.IGNORE");
    ExpectNothingLeftBy(50, [&] {
        std::vector<Step> steps = {PressKey(VK_HOME), PressKey(VK_F2), IsEditing, PressKey(VK_ESCAPE),
                                   IsNotEditing};
        AskRowMenu(steps, 1);
        steps.push_back(Press(IDOK));
        Show(std::move(steps));
    });
}
