// Which file goes to which slot, what slots hand back, and when the batch is over. It starts no
// process itself: the launch is handed in. Portable.
#pragma once

#include "engine/Records.h"
#include "engine/SlotCount.h"
#include "host/clFileList.h"

#include <functional>
#include <unordered_map>

class clScheduler {
public:
    using Launch = std::function<void(clJobSlot&, const clFileItem&)>;

    void BuildSlots(const clConversionSetup& setup, const clSlotPlan& plan);
    // Moves the examine position over files that are read; true when all are.
    bool AdvanceExamining(const clFileList& files);
    // Counts, adds up and makes the planned result rows; state 1 afterwards.
    void BeginConverting(const clFileList& files, std::uint32_t now);
    // Collects, then gives the next files to the free slots, lowest slot first. True when every file
    // was started and no slot runs: the batch is to be finished.
    [[nodiscard]] bool ScheduleSlots(const clFileList& files, const Launch& launch);
    void HarvestSlots();
    // Milliseconds of play length that are done; collects finished slots first.
    [[nodiscard]] std::uint64_t ProgressTotal();
    [[nodiscard]] bool IsAnySlotRunning() const;

    std::uint32_t conversionState = stateExamining;
    std::int32_t nextPendingFile = 0;
    std::int64_t examinePosition = 0;
    std::int32_t currentFileNumber = 1; // for the display only
    std::int32_t filesToConvert = 0;
    std::uint64_t totalUnits = 0; // milliseconds of play length, as all units
    std::uint64_t doneUnits = 0;
    std::uint32_t startTick = 0; // moved forward by pauses
    bool hasReports = false;     // a harvest has taken an error or information report
    XString codecName;

    XArray<clJobSlot> slots;
    XArray<clBatchResult> results; // grows by AddResult only
    XArray<clLogEntry> errorLog;
    XArray<clLogEntry> informationLog;

private:
    void AddResult(const XString& source, const XString& output, std::uint32_t failed);
    template <class Visit>
    void ForResultsOf(const XString& source, Visit visit);
    void CollectFinished(clJobSlot& slot);
    void TakeReports(clJobSlot& slot);

    // By the hash of the source: a large batch that fails throughout must not search all rows per file.
    std::unordered_multimap<std::size_t, clBatchResult*> resultsBySource;
};

[[nodiscard]] std::int32_t CountFilesToConvert(const clFileList& files);

// The overwrite check. `exists` says whether a path is a file. `ask` edits the items and answers false
// on cancel; it is not called without items. False: cancelled, nothing was changed.
using clExistsFunction = std::function<bool(const XString& path)>;
using clAskOverwrite = std::function<bool(XArray<clOverwriteItem>& items)>;
[[nodiscard]] bool CheckOverwrites(clFileList& files, const XString& extension,
                                   const clExistsFunction& exists, const clAskOverwrite& ask);
