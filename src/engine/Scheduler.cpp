// Which file goes to which slot, what slots hand back, and when the batch is over.
#include "engine/Scheduler.h"

#include "naming/OutputPath.h"

namespace {

constexpr wchar_t ignoredExtension[] = L".IGNORE"; // of encoders that write no file of that name

// The text moves into the report. False if there was none.
bool TakeReport(XString& text, clJobReport& report, const clJobSlot& slot) {
    if (text.IsEmpty())
        return false;
    report.source = slot.source;
    report.output = slot.output;
    report.text = text;
    text.Clear();
    return true;
}

void AddLogEntry(XArray<clLogEntry>& log, const XString& codecName, clJobReport& report) {
    clLogEntry* entry = log.AddNew();
    entry->codecName = codecName;
    entry->source = report.source;
    entry->output = report.output;
    SplitLines(report.text, entry->lines);
    report.text.Clear();
}

std::size_t HashOf(const XString& text) {
    return std::hash<std::string_view>()(BytesOf(text));
}

} // namespace

std::int32_t CountFilesToConvert(const clFileList& files) {
    std::int32_t count = 0;
    for (const clFileItem& item : files)
        if (item.skipFlag == 0)
            ++count;
    return count;
}

void clScheduler::BuildSlots(const clConversionSetup& setup, const clSlotPlan& plan) {
    codecName = setup.codecName;
    slots.Clear();
    for (int i = 0; i < plan.count; ++i) {
        clJobSlot* slot = slots.AddNew();
        slot->codecName = setup.codecName;
        slot->encoderSettings = setup.encoderSettings;
        slot->chainText = setup.chainText;
        slot->processorNumber = plan.processors[i];
    }
}

bool clScheduler::AdvanceExamining(const clFileList& files) {
    while (examinePosition < files.Count() && files[examinePosition].Stage() != stageNothing)
        ++examinePosition;
    return examinePosition >= files.Count();
}

void clScheduler::BeginConverting(const clFileList& files, std::uint32_t now) {
    filesToConvert = CountFilesToConvert(files);
    totalUnits = 0;
    for (const clFileItem& item : files) {
        if (item.skipFlag != 0)
            continue;
        totalUnits += item.format.lengthMs;
        AddResult(item.sourcePath, item.outputPath, 0);
    }
    startTick = now;
    conversionState = stateConverting;
}

void clScheduler::AddResult(const XString& source, const XString& output, std::uint32_t failed) {
    clBatchResult* row = results.AddNew();
    row->source = source;
    row->output = output;
    row->failed = failed;
    resultsBySource.emplace(HashOf(source), row);
}

template <class Visit>
void clScheduler::ForResultsOf(const XString& source, Visit visit) {
    const auto [begin, end] = resultsBySource.equal_range(HashOf(source));
    for (auto entry = begin; entry != end; ++entry)
        if (entry->second->source == source)
            visit(*entry->second);
}

bool clScheduler::ScheduleSlots(const clFileList& files, const Launch& launch) {
    HarvestSlots();
    while (nextPendingFile < files.Count() && files[nextPendingFile].skipFlag != 0)
        ++nextPendingFile;
    // Within one walk the entries go out as they stand, skipped or not: only the first is looked at.
    for (clJobSlot& slot : slots) {
        if (nextPendingFile >= files.Count())
            break;
        if (!slot.running)
            launch(slot, files[nextPendingFile++]);
    }
    if (nextPendingFile < files.Count() || IsAnySlotRunning())
        return false;
    HarvestSlots();
    return true;
}

bool clScheduler::IsAnySlotRunning() const {
    for (const clJobSlot& slot : slots)
        if (slot.running)
            return true;
    return false;
}

void clScheduler::HarvestSlots() {
    for (clJobSlot& slot : slots) {
        if (slot.running)
            continue;
        CollectFinished(slot);
        TakeReports(slot);
    }
}

void clScheduler::CollectFinished(clJobSlot& slot) {
    if (slot.finishedUnits == -1)
        return;
    doneUnits += static_cast<std::uint64_t>(slot.finishedUnits);
    ++currentFileNumber;
    slot.finishedUnits = -1;
    if (slot.reportedNames.IsEmpty())
        return;
    std::uint32_t failed = 0; // the same in all rows of a source
    ForResultsOf(slot.source, [&](const clBatchResult& row) { failed = row.failed; });
    for (const XString& name : slot.reportedNames)
        AddResult(slot.source, name, failed);
}

void clScheduler::TakeReports(clJobSlot& slot) {
    if (TakeReport(slot.errorText, slot.errorReport, slot)) {
        hasReports = true;
        AddLogEntry(errorLog, codecName, slot.errorReport);
        ForResultsOf(slot.source, [](clBatchResult& row) { row.failed = 1; });
    }
    if (TakeReport(slot.informationText, slot.informationReport, slot)) {
        hasReports = true;
        AddLogEntry(informationLog, codecName, slot.informationReport);
    }
}

std::uint64_t clScheduler::ProgressTotal() {
    HarvestSlots();
    std::uint64_t total = doneUnits;
    for (const clJobSlot& slot : slots) {
        if (!slot.running)
            continue;
        // A file at 0 percent counts for 1: the bar moves as soon as work starts.
        const std::int64_t percent = std::int64_t{slot.percent} + 1;
        total += slot.length * static_cast<std::uint64_t>(percent < 100 ? percent : 100) / 100;
    }
    return total;
}

bool CheckOverwrites(clFileList& files, const XString& extension, const clExistsFunction& exists,
                     const clAskOverwrite& ask) {
    if (extension.EqualsNoCase(ignoredExtension))
        return true;
    XArray<clOverwriteItem> rows;
    for (const clFileItem& item : files) {
        if (item.skipFlag != 0 || !exists(item.outputPath))
            continue;
        clOverwriteItem* row = rows.AddNew();
        row->path = item.outputPath;
        row->replacementPath = item.outputPath;
    }
    if (rows.IsEmpty())
        return true;
    if (!ask(rows))
        return false;
    // Both lists have the same order, so one position is enough. A row that fits nothing uses it up.
    std::int64_t position = 0;
    for (clOverwriteItem& row : rows) {
        while (position < files.Count() && !(files[position].outputPath == row.path))
            ++position;
        if (position == files.Count())
            break;
        clFileItem& item = files[position++];
        CleanPath(row.replacementPath, false, true);
        item.outputPath = row.replacementPath;
        item.skipFlag = row.skipFlag;
    }
    return true;
}
