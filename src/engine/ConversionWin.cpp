// One conversion from its settings to its end.
#include "engine/Conversion.h"

#include "engine/BatchEnd.h"
#include "engine/WorkerText.h"
#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"
#include "host/CodecHandler.h"
#include "host/Settings.h"
#include "naming/NamingEvaluator.h"
#include "naming/OutputPath.h"

namespace {

// Most outputs are new, and a question for attributes tells that many times faster than a search.
bool IsOutputThere(const XString& path) {
    if (NamesDevice(path))
        return false; // no file to ask about; the worker tells what is wrong
    if (GetFileAttributesW(LongPath(path, longFileLimit)) == INVALID_FILE_ATTRIBUTES) {
        const DWORD error = GetLastError();
        if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND)
            return false;
    }
    return IsFile(path);
}

} // namespace

void clConversion::ReadSetup() {
    const XString item = RegReadString(Setting::lastCodec);
    const clRecipe recipe = ReadRecipe(item);
    setup.codecName = EncoderNameOf(item);
    setup.encoderSettings = recipe.encoderSettings;
    setup.outputFolder = recipe.mode != outputSourceFolder ? recipe.folder : XString();
    setup.namingTemplate = recipe.mode == outputDynamic ? recipe.naming : XString();
    setup.extension = GetEncoderExtension(setup.codecName);
    setup.chainText = recipe.effects;
    priority = RegReadDword(Setting::priority);
}

void clConversion::Prepare() {
    scheduler.filesToConvert = CountFilesToConvert(files);
    texts.heading = StartHeading(scheduler.filesToConvert, setup.codecName);
    batch.Begin(setup.chainText, setup.codecName, setup.encoderSettings);
    const clEncoderAnswers encoder = AskEncoder(setup.codecName, setup.encoderSettings);
    multiplier = encoder.multiplier;
    scheduler.BuildSlots(
        setup, PlanSlots(SystemProcessors(), encoder.noMultiCpu, scheduler.filesToConvert, setup.chainText));
}

void clConversion::StartReadAhead() {
    NeedsTags = HasDynamicItem(setup.namingTemplate);
    readAheadWork.files = &files;
    readAhead.Start(ProbeSourceFiles, &readAheadWork, readAheadStopMs);
}

clTickReport clConversion::Tick() {
    clTickReport report;
    clPollOrder order;
    order.paused = paused;
    order.cancelling = scheduler.conversionState == stateCancelling;
    order.priority = priority;
    order.watchdogMs = watchdogMs;
    std::uint32_t bit = 1;
    for (clJobSlot& slot : scheduler.slots) {
        const unsigned changes = PollWorker(slot, order);
        report.barsChanged |= (changes & slotBarChanged) != 0 ? bit : 0;
        report.textsChanged |= (changes & slotTextChanged) != 0 ? bit : 0;
        bit <<= 1;
    }
    if (paused) {
        if (scheduler.conversionState == stateExamining && readAhead.thread.IsValid() &&
            !readAhead.suspended) {
            SuspendThread(readAhead.thread.Get());
            readAhead.suspended = true; // a Stop resumes it, too
        }
        return report;
    }
    switch (scheduler.conversionState) {
    case stateExamining:
        report.outcome = TickExamining();
        break;
    case stateConverting:
        TickProgress();
        report.outcome = Schedule();
        break;
    case stateCancelling:
        report.outcome = TickCancelling();
        break;
    default:
        break;
    }
    return report;
}

clTickOutcome clConversion::TickExamining() {
    if (!scheduler.AdvanceExamining(files)) {
        texts.status = ExaminingText(scheduler.examinePosition, files.Count());
        return clTickOutcome::nothing;
    }
    if (!BuildOutputList()) {
        scheduler.conversionState = stateFinished;
        return clTickOutcome::abandoned;
    }
    texts.status.Clear();
    SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_ABOVE_NORMAL);
    scheduler.BeginConverting(files, GetTickCount());
    return clTickOutcome::nothing;
}

bool clConversion::BuildOutputList() {
    for (clFileItem& item : files)
        if (item.skipFlag == 0)
            ComputeOutputPath(item, setup.outputFolder, setup.namingTemplate, setup.extension);
    if (!askOverwrite)
        return true;
    return CheckOverwrites(files, setup.extension, IsOutputThere, askOverwrite);
}

void clConversion::TickProgress() {
    texts.heading = ProgressHeading(scheduler.currentFileNumber, scheduler.filesToConvert, setup.codecName);
    const bool oneAtATime = scheduler.slots.Count() < 2 || scheduler.filesToConvert < 2;
    const XString status =
        oneAtATime ? scheduler.slots[0].shownText : XString(L"Encoding using multiple CPUs");
    if (!status.IsEmpty())
        texts.status = status;

    const std::uint64_t done = scheduler.ProgressTotal();
    const std::int64_t percent = OverallPercent(done, scheduler.totalUnits);
    if (percent > overallPercent)
        overallPercent = percent;
    texts.title = ProgressTitle(overallPercent);

    const std::uint32_t elapsed = GetTickCount() - scheduler.startTick;
    texts.elapsed = FormatElapsed(elapsed / 1000, true);
    if (!texts.elapsed.IsEmpty())
        texts.elapsed += L" Elapsed";
    constexpr std::uint32_t settlingMs = 4001; // before that a projection would only jump about
    if (elapsed < settlingMs)
        return;
    std::int64_t remaining = 0;
    if (RemainingMs(done, scheduler.totalUnits, elapsed, remaining)) {
        texts.remaining = FormatElapsed(static_cast<std::uint64_t>(remaining) / 1000, false);
        if (!texts.remaining.IsEmpty())
            texts.remaining += L" Remaining";
    }
    texts.speed = FormatSpeed(done, elapsed, multiplier);
}

clTickOutcome clConversion::Schedule() {
    const clLaunchContext context{batch.batchId, workerExecutable};
    const auto start = [&](clJobSlot& slot, const clFileItem& item) { LaunchWorker(slot, item, context); };
    if (!scheduler.ScheduleSlots(files, launch ? launch : clScheduler::Launch(start)))
        return clTickOutcome::nothing;
    scheduler.conversionState = stateFinished;
    texts.heading = L"Finalizing DSP Effects";
    return clTickOutcome::finishBatch;
}

clTickOutcome clConversion::TickCancelling() {
    texts.status = L"Cancelling Conversion...";
    return scheduler.IsAnySlotRunning() ? clTickOutcome::nothing : clTickOutcome::cancelled;
}

void clConversion::FinishBatch() {
    RunBatchEnd(batch, setup, scheduler.results, scheduler.errorLog);
    texts.title = XString(L"[Finished] ") + programCaption;
    texts.remaining.Clear();
    texts.elapsed.Clear();
    const std::uint32_t elapsed = GetTickCount() - scheduler.startTick;
    texts.status = L"Completed in " + FormatElapsed(elapsed / 1000, true);
    for (clJobSlot& slot : scheduler.slots)
        ClearSlotTexts(slot);
    texts.speed = FormatSpeed(scheduler.doneUnits, elapsed, multiplier);
    overallPercent = 100;
    texts.heading = FinishedHeading(scheduler.filesToConvert, setup.codecName);
}

void clConversion::Pause() {
    if (paused)
        return;
    pauseStart = GetTickCount();
    paused = true;
}

void clConversion::Resume() {
    if (!paused)
        return;
    if (scheduler.conversionState == stateConverting)
        scheduler.startTick += GetTickCount() - pauseStart;
    if (scheduler.conversionState == stateExamining && readAhead.suspended) {
        ResumeThread(readAhead.thread.Get());
        readAhead.suspended = false;
    }
    paused = false;
}

void clConversion::Cancel() {
    scheduler.conversionState = stateCancelling;
    paused = false;
}
