// Launch and supervision of real processes, which play scripts.
#include "engine/Supervision.h"
#include "engine/WorkerLaunch.h"
#include "foundation/XFileSystem.h"
#include "host/clFileItem.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

constexpr DWORD deadlineMs = 15000;

// Children of this process end with it, whatever a test does.
void TieChildren() {
    static const HANDLE job = [] {
        const HANDLE made = CreateJobObjectW(nullptr, nullptr);
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        SetInformationJobObject(made, JobObjectExtendedLimitInformation, &limits, sizeof(limits));
        AssignProcessToJobObject(made, GetCurrentProcess());
        return made;
    }();
    static_cast<void>(job);
}

class Worker : public testing::Test {
protected:
    void SetUp() override {
        TieChildren();
        context.batchId = 7;
        context.executable = ProgramFolder() + L"stand_in_worker.exe";
        item.sourcePath = L"C:\\source \x00fc\x4e2d.wav";
        item.outputPath = L"C:\\out.mp3";
        item.format.lengthMs = 5000;
    }
    void Launch(const wchar_t* script) {
        slot.encoderSettings = XString(L"-script=\"") + script + L"\"";
        LaunchWorker(slot, item, context);
        ASSERT_NE(slot.running, !slot.errorText.IsEmpty());
    }
    bool PollUntil(const std::function<bool()>& reached) {
        const DWORD begin = GetTickCount();
        while (!reached()) {
            if (GetTickCount() - begin > deadlineMs)
                return false;
            changes |= PollWorker(slot, order);
            Sleep(5);
        }
        return true;
    }
    bool PollToEnd() {
        return PollUntil([&] { return !slot.running; });
    }

    clFileItem item;
    clLaunchContext context;
    clPollOrder order;
    clJobSlot slot;
    unsigned changes = 0;
};

TEST_F(Worker, LinesReachTheSlotEvenAtTheVeryEnd) {
    Launch(L"out:MSGTO: zTM: Action: Encoding|out:MSGTO: zTM: PCDone: 42|out:MSGTO: other: PCDone: 90|"
           L"err:bad one|err:bad two|wide:|out:MSGTO: zTM: FileName: C:\\a:b.mp3|part:last");
    ASSERT_TRUE(PollToEnd());
    EXPECT_EQ(slot.percent, 42);
    EXPECT_EQ(slot.errorText, XString(L"bad one\r\nbad two"));
    EXPECT_EQ(slot.informationText, item.sourcePath + L"\r\nlast");
    ASSERT_EQ(slot.reportedNames.Count(), 1);
    EXPECT_EQ(slot.reportedNames[0], XString(L"C:\\a:b.mp3"));
    EXPECT_EQ(slot.finishedUnits, 5000);
    EXPECT_TRUE(slot.action.IsEmpty());
    EXPECT_TRUE(changes & slotBarChanged);
    PollWorker(slot, order);
    EXPECT_EQ(slot.shownPercent, 100);
    EXPECT_FALSE(slot.link->process.IsValid());
}

TEST_F(Worker, TextIsTakenAsItStandsAtTheMomentOfReading) {
    XEvent gate;
    const XString name = MakeUniqueEvent(gate, L"tm-test-gate-");
    Launch(L"out:MSGTO: zTM: Action: Busy|part:ha|gate:" + name + L"|out:lf");
    ASSERT_TRUE(PollUntil([&] { return !slot.informationText.IsEmpty() && !slot.shownText.IsEmpty(); }));
    EXPECT_EQ(slot.informationText, XString(L"ha"));
    EXPECT_EQ(slot.shownText, XString(L"Busy"));
    EXPECT_TRUE(changes & slotTextChanged);
    gate.Set();
    ASSERT_TRUE(PollToEnd());
    EXPECT_EQ(slot.informationText, XString(L"ha\r\nlf"));
}

TEST_F(Worker, FloodArrivesWhole) {
    Launch(L"flood:3000");
    ASSERT_TRUE(PollToEnd());
    EXPECT_EQ(slot.informationText.Count(), 3000 * 54 + 2999 * 2);
}

TEST_F(Worker, SuddenDeathFreesTheSlot) {
    Launch(L"out:before|crash:");
    ASSERT_TRUE(PollToEnd());
    EXPECT_EQ(slot.informationText, XString(L"before"));
    EXPECT_EQ(slot.finishedUnits, 5000);
}

TEST_F(Worker, EndingReadsWhatIsLeft) {
    Launch(L"err:late|out:MSGTO: zTM: PCDone: 99");
    ASSERT_EQ(WaitForSingleObject(slot.link->process.Get(), deadlineMs), DWORD{WAIT_OBJECT_0});
    EndWorker(slot);
    EXPECT_EQ(slot.errorText, XString(L"late"));
    EXPECT_EQ(slot.percent, 99);
    EXPECT_FALSE(slot.running);
}

TEST_F(Worker, CancelReachesTheWorker) {
    Launch(L"quit:|out:quit seen");
    order.cancelling = true;
    ASSERT_TRUE(PollToEnd());
    EXPECT_EQ(slot.informationText, XString(L"quit seen"));
}

TEST_F(Worker, SilenceIsGivenUpButNotEnded) {
    order.watchdogMs = 200;
    Launch(L"quit:");
    const XKernelHandle process([&] {
        HANDLE copy = nullptr;
        DuplicateHandle(GetCurrentProcess(), slot.link->process.Get(), GetCurrentProcess(), &copy, 0, FALSE,
                        DUPLICATE_SAME_ACCESS);
        return copy;
    }());
    slot.lastLife = GetTickCount() - 150;
    ASSERT_TRUE(PollToEnd());
    EXPECT_EQ(slot.errorText, XString(L"Error: Watchdog timeout, possible Millworker crash"));
    EXPECT_EQ(WaitForSingleObject(process.Get(), 0), DWORD{WAIT_TIMEOUT});
    slot.link->cancelEvent.Set();
    EXPECT_EQ(WaitForSingleObject(process.Get(), deadlineMs), DWORD{WAIT_OBJECT_0});
}

TEST_F(Worker, SignOfLifeAndPauseHoldTheWatchdogOff) {
    XEvent gate;
    const XString name = MakeUniqueEvent(gate, L"tm-test-gate-");
    Launch(L"beat:|out:beaten|gate:" + name);
    ASSERT_TRUE(PollUntil([&] { return !slot.informationText.IsEmpty(); }));
    order.watchdogMs = 1000;
    slot.lastLife = GetTickCount() - 5000; // would be too long
    slot.link->watchdogEvent.Set();
    PollWorker(slot, order);
    EXPECT_TRUE(slot.running);
    EXPECT_FALSE(slot.link->watchdogEvent.IsSet());

    order.paused = true;
    slot.lastLife = GetTickCount() - 5000;
    const std::uint32_t steps = slot.tickCount;
    PollWorker(slot, order);
    EXPECT_TRUE(slot.running);
    EXPECT_TRUE(slot.suspended);
    EXPECT_EQ(slot.tickCount, steps);
    EXPECT_EQ(SuspendThread(slot.link->thread.Get()), 1u); // it was suspended once
    ResumeThread(slot.link->thread.Get());
    order.paused = false;
    PollWorker(slot, order);
    EXPECT_FALSE(slot.suspended);
    gate.Set();
    EXPECT_TRUE(PollToEnd());
}

TEST_F(Worker, PriorityIsTakenUp) {
    Launch(L"quit:");
    order.priority = priorityIdle;
    PollWorker(slot, order);
    EXPECT_EQ(GetPriorityClass(slot.link->process.Get()), DWORD{IDLE_PRIORITY_CLASS});
    EXPECT_EQ(GetThreadPriority(slot.link->thread.Get()), THREAD_PRIORITY_IDLE);
    order.priority = priorityBelowNormal;
    PollWorker(slot, order);
    EXPECT_EQ(GetPriorityClass(slot.link->process.Get()), DWORD{NORMAL_PRIORITY_CLASS});
    EXPECT_EQ(GetThreadPriority(slot.link->thread.Get()), THREAD_PRIORITY_BELOW_NORMAL);
    order.cancelling = true;
    EXPECT_TRUE(PollToEnd());
}

TEST_F(Worker, FailedStartLeavesTheSlotFree) {
    context.executable = L"C:\\not\\there.exe";
    Launch(L"");
    EXPECT_FALSE(slot.running);
    EXPECT_EQ(slot.errorText, XString(L"Error running Millworker"));
    EXPECT_EQ(slot.finishedUnits, -1);
    EXPECT_FALSE(slot.link->outPipe.readEnd.IsValid());
}

TEST_F(Worker, CommandFileGoesWithTheNextLaunchAndWithTheSlot) {
    Launch(L"");
    const XString first = slot.link->commandFile;
    ASSERT_TRUE(PollToEnd());
    EXPECT_TRUE(IsFile(first));
    Launch(L"");
    const XString second = slot.link->commandFile;
    ASSERT_TRUE(PollToEnd());
    if (!(first == second)) { // the system may give the freed name again
        EXPECT_FALSE(IsFile(first));
    }
    slot.link.reset();
    EXPECT_FALSE(IsFile(second));
}

TEST_F(Worker, FiftyLaunchesLeaveNoHandle) {
    const auto count = [] {
        DWORD handles = 0;
        GetProcessHandleCount(GetCurrentProcess(), &handles);
        return handles;
    };
    const XString good = context.executable;
    DWORD before = 0;
    for (int i = 0; i < 52; ++i) {
        context.executable = i % 2 ? XString(L"C:\\not\\there.exe") : good;
        Launch(L"out:x");
        ASSERT_TRUE(PollToEnd());
        slot.errorText.Clear();
        if (i == 1)
            before = count();
    }
    EXPECT_EQ(count(), before);
}

TEST(Pipe, ChildrenInheritTheWriteEndAlone) {
    XPipe pipe;
    ASSERT_TRUE(pipe.Create());
    const XFileHandle writing = pipe.TakeWriteEnd();
    EXPECT_FALSE(pipe.TakeWriteEnd().IsValid()); // it is given away once
    DWORD flags = 0;
    GetHandleInformation(writing.Get(), &flags);
    EXPECT_EQ(flags & HANDLE_FLAG_INHERIT, DWORD{HANDLE_FLAG_INHERIT});
    GetHandleInformation(pipe.readEnd.Get(), &flags);
    EXPECT_EQ(flags & HANDLE_FLAG_INHERIT, 0u);
}

} // namespace
