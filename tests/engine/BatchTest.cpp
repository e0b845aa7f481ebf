// Batch id and folder, the encoder's wishes, the effects' batch end, and a whole conversion.
#include "engine/BatchEnd.h"
#include "engine/Conversion.h"
#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "host/PluginFolders.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class BatchTest : public testing::Test {
protected:
    void SetUp() override {
        SetPluginRoot(ProgramFolder() + L"fakes\\");
        log = TempFolder() + L"tm-engine-" + UnsignedText(GetCurrentProcessId()) + L".log";
        setup.codecName = L"Asker";
        setup.encoderSettings = L"-q";
    }
    void TearDown() override {
        SetPluginRoot(nullptr);
        DeleteFileW(log);
    }
    XString log; // what the effect heard
    clConversionSetup setup;
};

TEST_F(BatchTest, IdIsUniqueAndTheFolderComesAndGoes) {
    XString folder;
    {
        clBatch first, second;
        XString chain;
        first.Begin(chain, L"absent", L"");
        second.Begin(chain, L"absent", L"");
        EXPECT_NE(first.batchId, second.batchId);
        folder = first.temporaryFolder;
        EXPECT_EQ(folder, TempFolder() + L"Zt" + UnsignedText(first.batchId));
        EXPECT_TRUE(PathExists(folder));
        const XString name = L"mutZtBatchID" + DecimalText(static_cast<std::int32_t>(first.batchId));
        EXPECT_TRUE(XKernelHandle(OpenMutexW(SYNCHRONIZE, FALSE, name)).IsValid());
        EXPECT_TRUE(MakeFolders(folder + L"\\sub"));
    }
    EXPECT_FALSE(PathExists(folder));
}

TEST_F(BatchTest, EncoderAddsItsEffectAndAnswersForItsSlots) {
    XString chain(L"-dspeffect1=\"A=1\"");
    AddRequiredEffect(chain, L"Asker", L"nothing");
    EXPECT_EQ(chain, XString(L"-dspeffect1=\"A=1\""));
    AddRequiredEffect(chain, L"Asker", L"needs");
    EXPECT_EQ(chain, XString(L"-dspeffect1=\"A=1\" -dspeffect2=\"Listener=asked\""));

    EXPECT_FALSE(AskEncoder(L"Asker", L"").noMultiCpu);
    EXPECT_EQ(AskEncoder(L"Asker", L"").multiplier, 1);
    EXPECT_TRUE(AskEncoder(L"Asker", L"single triple").noMultiCpu);
    EXPECT_EQ(AskEncoder(L"Asker", L"single triple").multiplier, 3);
    EXPECT_EQ(AskEncoder(L"absent", L"triple").multiplier, 1);
}

TEST_F(BatchTest, EveryEffectHearsTheBatchOnce) {
    clBatch batch;
    batch.Begin(setup.chainText, L"absent", L"");
    setup.chainText = L"-dspeffect1=\"Listener=" + log +
                      L"\" -dspeffect2=\"Absent=x\" -dspeffect3=\"Listener=" + log +
                      L"\" -dspeffect5=\"Listener=" + log + L"\"";
    XArray<clBatchResult> results;
    clBatchResult* row = results.AddNew();
    row->source = L"a";
    row->output = L"b";
    const std::int64_t id = batch.batchId;
    const XString folder = batch.temporaryFolder;
    XArray<clLogEntry> errorLog;
    clLogEntry* entry = errorLog.AddNew();
    entry->source = L"a";
    entry->lines.AddString(L"why");
    RunBatchEnd(batch, setup, results, errorLog);
    RunBatchEnd(batch, setup, results, errorLog);
    EXPECT_FALSE(PathExists(folder));
    EXPECT_EQ(batch.batchId, 0u);

    XTagList list, errors;
    XBuffer image, errorImage, heard;
    FillResultList(results, list);
    ASSERT_TRUE(list.Serialize(image));
    FillErrorList(results, errorLog, errors);
    ASSERT_TRUE(errors.Serialize(errorImage));
    ASSERT_TRUE(ReadWholeFile(log, heard));
    std::string expected;
    for (const XBuffer* told : {&errorImage, &image, &errorImage, &image}) {
        expected.append(reinterpret_cast<const char*>(&id), sizeof(id));
        expected.append(reinterpret_cast<const char*>(&told->size), 4);
        expected.append(reinterpret_cast<const char*>(L"-qAsker"), 14);
        expected.append(reinterpret_cast<const char*>(told->data), told->size);
    }
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(heard.data), heard.size), expected);
}

class ConversionTest : public BatchTest {
protected:
    void SetUp() override {
        BatchTest::SetUp();
        for (int i = 0; i < 5; ++i) {
            clFileItem* item = files.Append();
            item->sourcePath = L"C:\\tm-absent\\" + DecimalText(i) + L".wav";
            item->format.lengthMs = 1000;
            item->SetStage(stageFormat);
        }
        conversion.setup = setup;
        conversion.setup.extension = L".mp3";
        conversion.setup.chainText = L"-dspeffect1=\"Multi-CPU Force=-cpu1 -cpu2\"";
        conversion.workerExecutable = ProgramFolder() + L"stand_in_worker.exe";
    }
    clTickOutcome TickUntilOutcome() {
        const DWORD begin = GetTickCount();
        while (GetTickCount() - begin < 20000) {
            const clTickOutcome outcome = conversion.Tick().outcome;
            if (outcome != clTickOutcome::nothing)
                return outcome;
            Sleep(5);
        }
        return clTickOutcome::nothing;
    }
    clFileList files;
    clConversion conversion{files};
};

TEST_F(ConversionTest, RunsFromExaminingToTheFinishedTexts) {
    conversion.setup.encoderSettings = L"-script=\"out:MSGTO: zTM: PCDone: 50|err:odd\"";
    conversion.Prepare();
    EXPECT_TRUE(conversion.AreRowsShown());
    EXPECT_EQ(conversion.texts.heading, XString(L"Converting 5 Files to Asker"));
    ASSERT_EQ(TickUntilOutcome(), clTickOutcome::finishBatch);
    conversion.FinishBatch();
    EXPECT_EQ(conversion.texts.heading, XString(L"Converted 5 Files to Asker"));
    EXPECT_TRUE(conversion.texts.status.StartsWith(L"Completed in "));
    EXPECT_EQ(conversion.overallPercent, 100);
    EXPECT_EQ(conversion.scheduler.doneUnits, 5000u);
    EXPECT_EQ(conversion.scheduler.errorLog.Count(), 5);
    EXPECT_EQ(conversion.scheduler.results.Count(), 5);
    EXPECT_EQ(conversion.scheduler.results[4].output, XString(L"C:\\tm-absent\\4.mp3"));
    EXPECT_EQ(conversion.batch.batchId, 0u);
}

TEST_F(ConversionTest, CancelDuringAPauseEndsWithoutBatchEnd) {
    conversion.setup.encoderSettings = L"-script=\"quit:\"";
    conversion.Prepare();
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(conversion.Tick().outcome, clTickOutcome::nothing);
    EXPECT_TRUE(conversion.scheduler.IsAnySlotRunning());
    const std::uint32_t start = conversion.scheduler.startTick;
    conversion.Pause();
    EXPECT_EQ(conversion.Tick().outcome, clTickOutcome::nothing);
    EXPECT_TRUE(conversion.scheduler.slots[0].suspended);
    conversion.Cancel();
    EXPECT_FALSE(conversion.IsPaused());
    EXPECT_EQ(TickUntilOutcome(), clTickOutcome::cancelled);
    EXPECT_EQ(conversion.texts.status, XString(L"Cancelling Conversion..."));
    EXPECT_EQ(conversion.scheduler.startTick, start);
    EXPECT_NE(conversion.batch.batchId, 0u);
    EXPECT_EQ(conversion.scheduler.nextPendingFile, 2);
}

TEST_F(ConversionTest, CancelledOverwriteQuestionAbandonsTheBatch) {
    {
        XFile made(log);
        ASSERT_TRUE(made.Open(GENERIC_WRITE, CREATE_ALWAYS));
    }
    files[2].sourcePath = log;
    conversion.setup.extension = L".log";
    conversion.askOverwrite = [](XArray<clOverwriteItem>& rows) {
        EXPECT_EQ(rows.Count(), 1);
        return false;
    };
    conversion.Prepare();
    EXPECT_EQ(conversion.Tick().outcome, clTickOutcome::abandoned);
    EXPECT_EQ(conversion.scheduler.conversionState, std::uint32_t{stateFinished});
    EXPECT_EQ(conversion.Tick().outcome, clTickOutcome::nothing);
}

TEST_F(ConversionTest, APauseHoldsLaunchesAndTheClock) {
    int launched = 0;
    conversion.launch = [&](clJobSlot&, const clFileItem&) { ++launched; }; // done at once
    conversion.Prepare();
    while (launched == 0)
        ASSERT_EQ(conversion.Tick().outcome, clTickOutcome::nothing);
    const int before = launched;
    const std::uint32_t start = conversion.scheduler.startTick;
    const DWORD begin = GetTickCount();
    conversion.Pause();
    for (; GetTickCount() - begin < 30; Sleep(1))
        EXPECT_EQ(conversion.Tick().outcome, clTickOutcome::nothing);
    EXPECT_EQ(launched, before);
    conversion.Resume();
    const std::uint32_t moved = conversion.scheduler.startTick - start;
    EXPECT_GE(moved, 30u);
    EXPECT_LE(moved, GetTickCount() - begin);
}

} // namespace
