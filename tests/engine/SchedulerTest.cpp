// Files to slots, slots to results and logs, with a launch that starts nothing.
#include "engine/Scheduler.h"
#include "engine/BatchEnd.h"
#include "engine/WorkerText.h"

#include <gtest/gtest.h>

namespace {

struct Fixture : testing::Test {
    void Add(const wchar_t* source, std::uint64_t lengthMs, std::uint32_t skip = 0) {
        clFileItem* item = files.Append();
        item->sourcePath = source;
        item->outputPath = XString(source) + L".out";
        item->format.lengthMs = lengthMs;
        item->skipFlag = skip;
    }
    void Begin(int slotCount) {
        clSlotPlan plan = PlanSlots(slotCount, false, 0, L"");
        clConversionSetup setup;
        setup.codecName = L"MP3";
        scheduler.BuildSlots(setup, plan);
        scheduler.BeginConverting(files, 1000);
    }
    bool Step() {
        return scheduler.ScheduleSlots(files, [this](clJobSlot& slot, const clFileItem& item) {
            PrepareSlotForFile(slot, item.sourcePath, item.outputPath, item.format.lengthMs);
            launched += item.sourcePath + L";";
            if (failLaunch)
                slot.errorText = L"Error running Millworker";
            else
                slot.running = true;
        });
    }
    clJobSlot& Slot(int index) { return scheduler.slots[index]; }

    clFileList files;
    clScheduler scheduler;
    XString launched;
    bool failLaunch = false;
};

XString Shown(const XTagList& list) {
    XString all;
    for (const XTagItem& item : list.items)
        all += item.key + L"=" + item.value + L"|";
    return all;
}

TEST_F(Fixture, LowestFreeSlotTakesTheNextFile) {
    Add(L"s", 5, 1);
    for (const wchar_t* name : {L"a", L"b", L"c", L"d"})
        Add(name, 100);
    Begin(2);
    EXPECT_EQ(scheduler.filesToConvert, 4);
    EXPECT_EQ(scheduler.totalUnits, 400u);
    EXPECT_EQ(scheduler.results.Count(), 4);
    EXPECT_FALSE(Step());
    EXPECT_FALSE(Step());
    EXPECT_EQ(launched, XString(L"a;b;"));
    FreeSlot(Slot(1));
    EXPECT_FALSE(Step());
    EXPECT_EQ(Slot(1).source, XString(L"c"));
    FreeSlot(Slot(0));
    FreeSlot(Slot(1));
    EXPECT_FALSE(Step());
    EXPECT_EQ(Slot(0).source, XString(L"d"));
    EXPECT_EQ(scheduler.doneUnits, 300u);
    EXPECT_EQ(scheduler.currentFileNumber, 4);
    FreeSlot(Slot(0));
    EXPECT_TRUE(Step());
    EXPECT_EQ(scheduler.doneUnits, 400u);
}

// Only the first entry of a walk is looked at: with two free slots the entry behind it goes out too.
TEST_F(Fixture, SkippedEntryGoesToASecondFreeSlot) {
    Add(L"a", 1);
    Add(L"s", 1, 1);
    Add(L"b", 1);
    Begin(2);
    EXPECT_FALSE(Step());
    EXPECT_EQ(launched, XString(L"a;s;"));
}

TEST_F(Fixture, NothingToConvertEndsAtOnce) {
    Add(L"s", 1, 1);
    Begin(1);
    EXPECT_TRUE(Step());
    EXPECT_TRUE(launched.IsEmpty());
}

TEST_F(Fixture, FailedLaunchUsesUpTheFileAndReachesTheLog) {
    Add(L"a", 50);
    Add(L"b", 50);
    Begin(1);
    failLaunch = true;
    EXPECT_FALSE(Step());
    failLaunch = false;
    EXPECT_FALSE(Step());
    EXPECT_EQ(launched, XString(L"a;b;"));
    ASSERT_EQ(scheduler.errorLog.Count(), 1);
    EXPECT_EQ(scheduler.errorLog[0].source, XString(L"a"));
    EXPECT_EQ(scheduler.results[0].failed, 1u);
    EXPECT_EQ(scheduler.results[1].failed, 0u);
    EXPECT_EQ(scheduler.doneUnits, 0u);
}

TEST_F(Fixture, HarvestMovesReportsAndReportedNames) {
    Add(L"a", 50);
    Add(L"b", 50);
    Begin(2);
    ASSERT_FALSE(Step());
    Slot(0).reportedNames.AddString(L"a1");
    Slot(0).reportedNames.AddString(L"a2");
    Slot(0).errorText = L"one\r\ntwo";
    Slot(0).informationText = L"note";
    Slot(1).errorText = L"still running";
    FreeSlot(Slot(0));
    scheduler.HarvestSlots();
    scheduler.HarvestSlots();
    EXPECT_TRUE(scheduler.hasReports);
    ASSERT_EQ(scheduler.errorLog.Count(), 1);
    const clLogEntry& entry = scheduler.errorLog[0];
    EXPECT_EQ(entry.codecName, XString(L"MP3"));
    EXPECT_EQ(entry.output, XString(L"a.out"));
    ASSERT_EQ(entry.lines.Count(), 2);
    EXPECT_EQ(entry.lines[1], XString(L"two"));
    ASSERT_EQ(scheduler.informationLog.Count(), 1);

    XTagList list;
    FillResultList(scheduler.results, list);
    EXPECT_EQ(Shown(list), L"file1_in=a|file1_out=a.out|file1_conversionhaderrors=|"
                           L"file2_in=b|file2_out=b.out|"
                           L"file3_in=a|file3_out=a1|file3_conversionhaderrors=|"
                           L"file4_in=a|file4_out=a2|file4_conversionhaderrors=|");
    XTagList errors;
    FillErrorList(scheduler.results, scheduler.errorLog, errors);
    EXPECT_EQ(Shown(errors), L"file1_errors=one\ntwo|file3_errors=one\ntwo|file4_errors=one\ntwo|");
}

TEST_F(Fixture, ProgressCountsOnePercentMoreUpToHundred) {
    Add(L"a", 1000);
    Add(L"b", 1000);
    Begin(2);
    ASSERT_FALSE(Step());
    const std::int32_t percents[][2] = {{0, 10}, {49, 500}, {99, 1000}, {100, 1000}, {0x7fffffff, 1000}};
    for (const auto& row : percents) {
        Slot(0).percent = row[0];
        EXPECT_EQ(scheduler.ProgressTotal(), 10u + static_cast<std::uint64_t>(row[1])) << row[0];
    }
}

TEST_F(Fixture, ExaminingWaitsForTheFirstUnreadFile) {
    Add(L"a", 1);
    Add(L"b", 1);
    files[1].SetStage(stageFormat);
    EXPECT_FALSE(scheduler.AdvanceExamining(files));
    EXPECT_EQ(scheduler.examinePosition, 0);
    files[0].SetStage(stageTags);
    EXPECT_TRUE(scheduler.AdvanceExamining(files));
}

TEST_F(Fixture, OverwriteAnswersComeBackToTheirFiles) {
    for (const wchar_t* name : {L"C:\\a", L"C:\\b", L"C:\\c", L"C:\\d"})
        Add(name, 1);
    files[1].outputPath = files[2].outputPath; // two files of one name
    files[3].skipFlag = 1;
    int asked = 0;
    const auto ask = [&](XArray<clOverwriteItem>& rows) {
        ++asked;
        EXPECT_EQ(rows.Count(), 2);
        rows[0].replacementPath = L"C:\\ne:w.out"; // as it was typed
        rows[1].skipFlag = 1;
        return true;
    };
    const auto exists = [&](const XString& path) { return path.Equals(L"C:\\c.out"); };
    EXPECT_TRUE(CheckOverwrites(files, L".ignore", exists, ask));
    EXPECT_EQ(asked, 0);
    EXPECT_FALSE(CheckOverwrites(files, L".out", exists, [](XArray<clOverwriteItem>&) { return false; }));
    EXPECT_TRUE(CheckOverwrites(files, L".out", exists, ask));
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(files[1].outputPath, XString(L"C:\\ne;w.out"));
    EXPECT_EQ(files[1].skipFlag, 0u);
    EXPECT_EQ(files[2].outputPath, XString(L"C:\\c.out"));
    EXPECT_EQ(files[2].skipFlag, 1u);
    EXPECT_EQ(files[0].outputPath, XString(L"C:\\a.out"));
}

} // namespace
