// The converting form over real worker processes that play a script: what it shows of them, and what
// they feel of its commands.
#include "FormDriver.h"
#include "forms/converting/Rows.h"
#include "forms/converting/frmConverting.h"
#include "foundation/XFileSystem.h"
#include "host/Settings.h"
#include "resources/ids.h"

#include <gtest/gtest.h>

#include <tlhelp32.h>

namespace {

constexpr wchar_t workerName[] = L"stand_in_worker.exe";
constexpr wchar_t codecKey[] = L"\\zTMCodec\\NoSuchEncoder";

// An event that the workers wait for.
class Gate {
public:
    explicit Gate(const wchar_t* tail) {
        name = L"tm-form-gate-" + UnsignedText(GetCurrentProcessId()) + tail;
        event.Create(name);
    }
    XString name;
    XEvent event;
};

XString Shows(const wchar_t* key, const wchar_t* value) {
    return XString(L"out:MSGTO: zTM: ") + key + L": " + value + L"|";
}

// A point of a row's bar that is `percent` from its left.
COLORREF BarColour(HWND form, int slot, int percent) {
    RECT corner = {rowBarX, rowControls[slot].y, 0, 0};
    MapDialogRect(form, &corner);
    const HDC dc = GetDC(form);
    const COLORREF colour =
        GetPixel(dc, corner.left + ScaleToDpi(402) * percent / 100, corner.top + ScaleToDpi(7));
    ReleaseDC(form, dc);
    return colour;
}

int WorkersOfClass(DWORD priorityClass) {
    const XFileHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    int found = 0;
    for (BOOL more = Process32FirstW(snapshot.Get(), &entry); more;
         more = Process32NextW(snapshot.Get(), &entry)) {
        if (entry.th32ParentProcessID != GetCurrentProcessId() || XString(entry.szExeFile) != workerName)
            continue;
        const XKernelHandle process(
            OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, entry.th32ProcessID));
        found += GetPriorityClass(process.Get()) == priorityClass;
    }
    return found;
}

// A percent that a worker tells counts one more in the title.
class ConvertingWorkers : public testing::Test {
protected:
    ConvertingWorkers() {
        RegWriteString(L"NoSuchEncoder", Setting::lastCodec);
        RegWriteString(L"-dspeffect1=\"Multi-CPU Force=-cpu1 -cpu2 -noally\"", Setting::effectChain,
                       HKEY_CURRENT_USER, SettingsPath(codecKey));
        seams.workerExecutable = ProgramFolder() + L"..\\engine\\" + workerName;
        for (int i = 0; i < 2; ++i) {
            clFileItem* item = files.Append();
            item->sourcePath = L"Q:\\none\\" + DecimalText(i) + L".wav";
            item->format.lengthMs = 60000;
            item->SetStage(stageTags);
        }
    }
    static void Play(const XString& script) {
        RegWriteString(L"-script=\"" + script + L"\"", Setting::encoderSettings, HKEY_CURRENT_USER,
                       SettingsPath(codecKey));
    }
    void Show(std::vector<FormDriver::Step> steps) {
        const FormDriver driver(std::move(steps));
        { const frmConverting form(files, seams); }
        EXPECT_TRUE(driver.IsDone()) << driver.StepsDone();
    }
    static XString Title() { return TextOf(FindForm(ID_HEADING)); }
    static bool Click(int button) {
        return PostMessageW(GetDlgItem(FindForm(ID_HEADING), button), BM_CLICK, 0, 0) != 0;
    }

    TestSettings settings;
    clFileList files;
    clConvertingSeams seams;
};

TEST_F(ConvertingWorkers, AreShownPausedResumedAndGivenTheirPriority) {
    Gate first(L"-1"), second(L"-2");
    Play(Shows(L"Action", L"Encoding at level 5") + Shows(L"PCDone", L"40") + L"gate:" + first.name + L"|" +
         Shows(L"PCDone", L"80") + L"gate:" + second.name);
    DWORD paused = 0;
    Show({
        [] { return Title() == L"[41%] Zephtone Tonemill"; },
        [] {
            const HWND form = FindForm(ID_HEADING);
            if (TextOf(form, rowControls[0].text) != L"Encoding at level 5" ||
                TextOf(form, rowControls[1].text) != L"Encoding at level 5" ||
                BarColour(form, 1, 20) == BarColour(form, 1, 60))
                return false;
            EXPECT_EQ(TextOf(form, ID_HEADING), XString(L"Converting File 1 of 2 to NoSuchEncoder"));
            EXPECT_EQ(TextOf(form, ID_STATUS), XString(L"Encoding using multiple CPUs"));
            EXPECT_EQ(BarColour(form, 1, 60), BarColour(form, 1, 90));
            return Click(ID_BUTTON_PAUSE);
        },
        [&] {
            paused = GetTickCount();
            first.event.Set();
        },
        [&] { return GetTickCount() - paused > 400; },
        [] {
            EXPECT_EQ(Title(), XString(L"[41%] Zephtone Tonemill"));
            return Click(ID_BUTTON_PAUSE);
        },
        [] { return Title() == L"[81%] Zephtone Tonemill"; },
        [] {
            EXPECT_EQ(WorkersOfClass(NORMAL_PRIORITY_CLASS), 2);
            return SendMessageW(FindForm(ID_HEADING), WM_COMMAND, ID_PRIORITY_IDLE, 0) == 0;
        },
        [] { return WorkersOfClass(IDLE_PRIORITY_CLASS) == 2; },
        [&] { second.event.Set(); },
        [] { return Title() == L"[Finished] Zephtone Tonemill"; },
        [] {
            const HWND form = FindForm(ID_HEADING);
            EXPECT_EQ(TextOf(form, rowControls[1].text), XString());
            EXPECT_EQ(TextOf(form, ID_REMAINING), XString());
            return Click(ID_BUTTON_FINISH);
        },
    });
}

TEST_F(ConvertingWorkers, EndWhenTheUserCancels) {
    Play(Shows(L"PCDone", L"10") + L"quit:");
    Show({
        [] { return Title() == L"[11%] Zephtone Tonemill"; },
        [] { return Click(ID_BUTTON_CANCEL); },
        AnswerBox(L"Cancel Conversion?", IDYES),
    });
    EXPECT_EQ(WorkersOfClass(NORMAL_PRIORITY_CLASS), 0);
}

} // namespace
