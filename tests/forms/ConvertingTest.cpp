// The converting form inside its modal loop, with work that is done without a worker process.
#include "forms/converting/frmConverting.h"

#include "../support/HandleReach.h"
#include "FormDriver.h"
#include "engine/WorkerText.h"
#include "forms/converting/Rows.h"
#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "host/Settings.h"
#include "resources/ids.h"

#include <gtest/gtest.h>

#include <commctrl.h>

namespace {

constexpr int logTree = 1034;
constexpr int reconvertButton = 1041;
constexpr wchar_t cancelQuestion[] = L"Cancel Conversion?";

class Converting : public testing::Test {
protected:
    Converting() {
        RegWriteString(L"NoSuchEncoder", Setting::lastCodec);
        powerFunction = [](std::int32_t action) { powerAction = action; };
        powerAction = -1;
    }

    void AddFiles(int count) {
        for (int i = 0; i < count; ++i) {
            XString path = L"Q:\\none\\" + DecimalText(i);
            path += L".wav";
            files.Append()->sourcePath = path;
        }
    }
    void ForceSlots(const wchar_t* processors) {
        RegWriteString(XString(L"-dspeffect1=\"Multi-CPU Force=") + processors + L"\"", Setting::effectChain,
                       HKEY_CURRENT_USER, SettingsPath(L"\\zTMCodec\\NoSuchEncoder"));
    }

    // Each file is done at once.
    static void Complete(clJobSlot& slot, const clFileItem& item) {
        PrepareSlotForFile(slot, item.sourcePath, item.outputPath, 1000);
        FreeSlot(slot);
    }
    static void Fail(clJobSlot& slot, const clFileItem& item) {
        Complete(slot, item);
        AddLine(slot.errorText, L"no such file");
    }
    void Show(std::vector<FormDriver::Step> steps) {
        const FormDriver driver(std::move(steps));
        { const frmConverting form(files, seams); }
        EXPECT_TRUE(driver.IsDone()) << driver.StepsDone();
    }
    static bool Press(int button) {
        const HWND form = FindForm(ID_HEADING);
        const HWND control = form ? GetDlgItem(form, button) : nullptr;
        return control && PostMessageW(control, BM_CLICK, 0, 0);
    }

    static std::int32_t powerAction;
    TestSettings settings;
    clFileList files;
    clConvertingSeams seams{{}, Complete};
};
std::int32_t Converting::powerAction = -1;

TEST_F(Converting, RunsToItsFinishedStateAndWaits) {
    AddFiles(3);
    RECT place{};
    Show({
        [] { return TextOf(FindForm(ID_BUTTON_FINISH)) == L"[Finished] Zephtone Tonemill"; },
        [&] {
            const HWND form = FindForm(ID_BUTTON_FINISH);
            EXPECT_EQ(TextOf(form, ID_HEADING), XString(L"Converted 3 Files to NoSuchEncoder"));
            EXPECT_TRUE(TextOf(form, ID_STATUS).StartsWith(L"Completed in "));
            EXPECT_EQ(TextOf(form, ID_ELAPSED), XString());
            EXPECT_EQ(GetDlgItem(form, ID_BUTTON_CANCEL), nullptr);
            EXPECT_FALSE(IsWindowEnabled(GetDlgItem(form, ID_BUTTON_PAUSE)));
            EXPECT_EQ(GetFocus(), GetDlgItem(form, ID_BUTTON_FINISH));
            place = PlaceOf(form);
            return Press(ID_BUTTON_FINISH);
        },
    });
    EXPECT_EQ(RegReadDword(Setting::formX), static_cast<DWORD>(place.left));
    EXPECT_EQ(RegReadDword(Setting::formY), static_cast<DWORD>(place.top));
    EXPECT_EQ(powerAction, -1);
    EXPECT_EQ(files[2].outputPath, XString(L"Q:\\none\\2"));
}

TEST_F(Converting, FinishesInPlaceWhileMinimised) {
    AddFiles(1);
    const auto place = [](int button) {
        return PlaceOf(GetDlgItem(FindForm(button), button), FindForm(button));
    };
    RECT cancel{};
    seams.launch = [&](clJobSlot& slot, const clFileItem& item) {
        cancel = place(ID_BUTTON_CANCEL);
        ShowWindow(FindForm(ID_HEADING), SW_MINIMIZE);
        Complete(slot, item);
    };
    Show({[&] {
        if (!FindForm(ID_BUTTON_FINISH))
            return false;
        ShowWindow(FindForm(ID_HEADING), SW_RESTORE);
        const RECT finish = place(ID_BUTTON_FINISH);
        EXPECT_TRUE(EqualRect(&finish, &cancel)) << finish.top << " " << cancel.top;
        return Press(ID_BUTTON_FINISH);
    }});
}

TEST_F(Converting, ClosesByItselfAndPerformsTheChosenAction) {
    AddFiles(1);
    RegWriteDword(1, Setting::skippedFinish);
    seams.launch = [](clJobSlot& slot, const clFileItem& item) {
        SendMessageW(FindForm(ID_HEADING), WM_COMMAND, ID_AFTER_HIBERNATE, 0);
        Complete(slot, item);
    };
    { const frmConverting form(files, seams); }
    EXPECT_EQ(powerAction, afterHibernate);
}

TEST_F(Converting, ShowsAsManyRowsAsSlots) {
    AddFiles(2);
    ForceSlots(L"-cpu1 -cpu3 -cpu5 -noally");
    RegWriteDword(50, Setting::formX);
    RegWriteDword(60, Setting::formY);
    Show({
        [] { return FindForm(ID_BUTTON_FINISH) != nullptr; },
        [] {
            const HWND form = FindForm(ID_BUTTON_FINISH);
            for (int i = 0; i < maximumSlots; ++i)
                for (const int id : {rowControls[i].text, rowControls[i].label, rowControls[i].icon})
                    EXPECT_EQ(IsWindowVisible(GetDlgItem(form, id)) != 0, i < 3) << id;
            EXPECT_EQ(PlaceOf(form).left, 50);
            EXPECT_EQ(PlaceOf(form).top, 60);
            return Press(ID_BUTTON_FINISH);
        },
    });
}

TEST_F(Converting, ErrorsSkipTheWaitAndAreShownUnlessUnwanted) {
    AddFiles(2);
    seams.launch = Fail;
    Show({[] {
        const HWND shown = FindForm(logTree);
        const HWND tree = shown ? GetDlgItem(shown, logTree) : nullptr;
        if (!tree || TreeView_GetCount(tree) != 6)
            return false;
        EXPECT_TRUE(IsWindowVisible(GetDlgItem(shown, reconvertButton)));
        return SendMessageW(shown, WM_COMMAND, IDOK, 0) == 0;
    }});
    RegWriteDword(1, Setting::noDisplayError);
    const DWORD start = GetTickCount();
    const FormDriver driver({[start] { return GetTickCount() - start > 20000; }}); // only its limit counts
    const frmConverting form(files, seams);
    EXPECT_LT(GetTickCount() - start, 15000U);
}

// The log opened in the midst of a batch neither stops the batch nor outlives it.
TEST_F(Converting, ShowsItsLogsWhileTheBatchGoesOn) {
    AddFiles(40);
    ForceSlots(L"-cpu1 -noally");
    RegWriteDword(1, Setting::noDisplayError);
    int launched = 0;
    seams.launch = [&](clJobSlot& slot, const clFileItem& item) {
        launched++ ? Complete(slot, item) : Fail(slot, item);
    };
    int launchedBefore = 0;
    const auto viewLogs = [] {
        const HWND form = FindForm(ID_HEADING);
        return form && SendMessageW(form, WM_COMMAND, ID_VIEW_LOGS, 0) == 0;
    };
    Show({
        [&] { return launched > 2; },
        viewLogs,
        [&] {
            const HWND shown = FindForm(logTree);
            launchedBefore = launched;
            return shown && TreeView_GetCount(GetDlgItem(shown, logTree)) == 3 &&
                   !IsWindowVisible(GetDlgItem(shown, reconvertButton));
        },
        [&] { return launched > launchedBefore + 3; },
    });
    EXPECT_EQ(launched, 40);
    EXPECT_EQ(FindForm(logTree), nullptr);
}

TEST_F(Converting, IsDrivenByTheKeyboard) {
    AddFiles(1);
    clJobSlot* worker = nullptr;
    seams.launch = [&](clJobSlot& slot, const clFileItem&) { (worker = &slot)->running = true; };
    const auto focusIs = [](int id) { return GetFocus() && GetDlgCtrlID(GetFocus()) == id; };
    Show({
        [&] { return worker != nullptr && focusIs(ID_BUTTON_OPTIONS); },
        PressKey(VK_TAB),
        [&] { return focusIs(ID_BUTTON_PAUSE) && PressKey(VK_TAB)(); },
        [&] { return focusIs(ID_BUTTON_CANCEL) && PressKey(VK_RETURN)(); },
        AnswerBox(cancelQuestion, IDNO),
        [&] { return focusIs(ID_BUTTON_CANCEL) && PostMessageW(FindForm(ID_HEADING), WM_CLOSE, 0, 0); },
        AnswerBox(cancelQuestion, IDNO),
        [&] { return focusIs(ID_BUTTON_CANCEL) && PressKey(VK_ESCAPE)(); },
        AnswerBox(cancelQuestion, IDYES),
        [&] { FreeSlot(*worker); },
    });
    EXPECT_EQ(powerAction, -1);
}

TEST_F(Converting, LeavesNoHandlesBehind) {
    AddFiles(2);
    RegWriteDword(1, Setting::skippedFinish);
    ExpectNothingLeftBy(50, [this] { const frmConverting form(files, seams); });
}

// The last worker goes while a menu or a second question keeps a loop of its own: the form takes it
// down and ends once.
TEST_F(Converting, EndsOnceBehindAnOpenQuestionOrMenu) {
    AddFiles(1);
    powerFunction = [](std::int32_t) { ++powerAction; };
    for (const int button : {ID_BUTTON_CANCEL, ID_BUTTON_OPTIONS}) {
        clJobSlot* worker = nullptr;
        DWORD freed = 0;
        powerAction = 0;
        seams.launch = [&](clJobSlot& slot, const clFileItem&) { (worker = &slot)->running = true; };
        const FormDriver driver({
            [] { return SendMessageW(FindForm(ID_HEADING), WM_COMMAND, ID_AFTER_LOG_OFF, 0) == 0; },
            [&] { return worker && Press(ID_BUTTON_CANCEL); },
            AnswerBox(cancelQuestion, IDYES),
            [&] { return !FindBox(cancelQuestion) && Press(button); },
            [&] {
                if (!FindBox(cancelQuestion) && !IsMenuOpen())
                    return false;
                FreeSlot(*worker);
                freed = GetTickCount();
                return true;
            },
            [&] { return GetTickCount() - freed > 3000 && (EndMenu() | AnswerBox(cancelQuestion, IDNO)()); },
        });
        { const frmConverting form(files, seams); }
        EXPECT_EQ(driver.StepsDone(), 5U) << button; // without the help of the last one
        EXPECT_EQ(powerAction, 1) << button;
    }
}

TEST_F(Converting, AsksAboutFilesThatExist) {
    const XString folder = TempFolder() + L"tm-form-exists\\";
    ASSERT_TRUE(MakeFolders(folder));
    XFile old(folder + L"old");
    ASSERT_TRUE(old.Open(GENERIC_WRITE, CREATE_ALWAYS));
    old.Close();
    for (const wchar_t* name : {L"old.wav", L"new.wav"})
        files.Append()->sourcePath = folder + name;
    ForceSlots(L"-cpu1"); // with two free slots a file that is left out can be started
    RegWriteDword(1, Setting::skippedFinish);
    XString launched;
    seams.launch = [&](clJobSlot& slot, const clFileItem& item) {
        launched += item.sourcePath;
        Complete(slot, item);
    };
    for (const int button : {IDCANCEL, ID_NO_TO_ALL}) {
        Show({[&] {
            const HWND list = GetDlgItem(FindForm(ID_OVERWRITE_LIST), ID_OVERWRITE_LIST);
            if (!list || !IsWindowVisible(list))
                return false;
            EXPECT_EQ(ListView_GetItemCount(list), 1);
            return PostMessageW(GetParent(list), WM_COMMAND, static_cast<WPARAM>(button), 0) != 0;
        }});
        EXPECT_EQ(launched, button == IDCANCEL ? XString() : folder + L"new.wav");
    }
    EXPECT_TRUE(DeleteTree(folder));
}

} // namespace
