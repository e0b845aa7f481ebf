// The worker's life: its sign, its end when nobody wants the conversion, what it is told of itself.
#include "WorkerProcess.h"

#include "foundation/XFileSystem.h"

#include <gtest/gtest.h>

namespace {

constexpr const char* slowTone = "frames=5000000 slow=20";
constexpr const char* hangingTone = "frames=500000 hangat=100000";

// From a conversion that is under way.
void WaitForOutput(WorkerProcess& worker) {
    ASSERT_TRUE(worker.WaitUntil([&worker] { return worker.Said(L"ActionOutput"); }))
        << worker.ErrorText().Text();
}

TEST(WorkerLife, GivesSignsAndLeavesNothingWhenCancelled) {
    WorkerProcess worker;
    worker.Start(worker.Write(L"a.tone", slowTone), worker.File(L"new\\a.fake"));
    WaitForOutput(worker);
    for (int i = 0; i < 3; ++i) {
        (void)worker.TakeSign();
        EXPECT_TRUE(worker.WaitUntil([&worker] { return worker.TakeSign(); }, 1000));
    }
    worker.Quit();
    EXPECT_EQ(worker.Wait(1000), 2);
    EXPECT_TRUE(worker.errors.IsEmpty()) << worker.ErrorText().Text();
    EXPECT_EQ(worker.EntryCount(), 1);
}

TEST(WorkerLife, AFirstPassIsCancelledTheSameWay) {
    WorkerProcess worker;
    worker.Start(worker.Write(L"a.tone", slowTone), worker.File(L"a.fake"), L"",
                 L" -dspeffect1=\"Fake=top=1\"");
    ASSERT_TRUE(worker.WaitUntil([&worker] { return worker.Said(L"Action: Analysing"); }));
    worker.Quit();
    EXPECT_EQ(worker.Wait(1000), 2);
    EXPECT_EQ(worker.EntryCount(), 1);
}

TEST(WorkerLife, AHungCodecGivesNoSignAndStillEndsWhenCancelled) {
    WorkerProcess worker;
    worker.Start(worker.Write(L"a.tone", hangingTone), worker.File(L"new\\a.fake"));
    WaitForOutput(worker);
    // The last sign was given before the codec hung; none may follow.
    ULONGLONG lastSign = GetTickCount64();
    EXPECT_TRUE(worker.WaitUntil([&] {
        if (worker.TakeSign())
            lastSign = GetTickCount64();
        return GetTickCount64() - lastSign > 2000;
    }));
    worker.Quit();
    EXPECT_EQ(worker.Wait(8000), 2);
    EXPECT_EQ(worker.EntryCount(), 1);
}

TEST(WorkerLife, EndsWithItsParent) {
    for (const char* content : {slowTone, hangingTone}) {
        WorkerProcess worker;
        worker.StartBelowParent(worker.Write(L"a.tone", content), worker.File(L"a.fake"));
        ASSERT_TRUE(worker.WaitUntil([&worker] { return worker.EntryCount() == 2; })) << content;
        EXPECT_FALSE(worker.HasEnded());
        worker.EndParent();
        EXPECT_EQ(worker.Wait(8000), 2) << content;
        EXPECT_EQ(worker.EntryCount(), 1) << content;
    }
}

TEST(WorkerLife, EndsWhenNobodyReads) {
    WorkerProcess worker;
    worker.Start(worker.Write(L"a.tone", slowTone), worker.File(L"a.fake"));
    WaitForOutput(worker);
    worker.StopReading();
    EXPECT_TRUE(worker.WaitUntil([&worker] { return worker.HasEnded(); }));
    EXPECT_EQ(worker.EntryCount(), 1);
}

TEST(WorkerLife, TakesProcessorAndPriority) {
    WorkerProcess worker;
    worker.Start(worker.Write(L"a.tone", slowTone), worker.File(L"a.fake"), L"",
                 L" -processor=\"2\" -priority=\"idle\"");
    WaitForOutput(worker);
    DWORD_PTR own = 0, machine = 0;
    ASSERT_TRUE(GetProcessAffinityMask(worker.process.Get(), &own, &machine));
    EXPECT_EQ(own, (machine & 2) != 0 ? DWORD_PTR{2} : machine);
    EXPECT_EQ(GetPriorityClass(worker.process.Get()), static_cast<DWORD>(IDLE_PRIORITY_CLASS));
}

TEST(WorkerLife, HandsTheTemporaryFolderToItsCodecs) {
    WorkerProcess worker;
    const XString temporary = worker.File(L"my temp");
    worker.Start(worker.Write(L"a.tone", slowTone), worker.File(L"a.fake"), L"saytmp=1",
                 XString(L" -processor=\"64\" -tmpfolder=\"") + temporary + L"\"");
    EXPECT_EQ(worker.Wait(), 1);
    EXPECT_NE(worker.ErrorText().Find(temporary), 0) << worker.ErrorText().Text();
    EXPECT_TRUE(PathExists(temporary));
}

} // namespace
