// The records of one batch: slots, results, logs, and what the overwrite question works on.
// Touched by the forms' thread only. Portable.
#pragma once

#include "foundation/XArray.h"
#include "foundation/XString.h"

#include <cstdint>
#include <memory>
#include <string_view>

// Pipes, events, process and command file of a slot's worker; the record itself knows no handle.
struct clWorkerLink;
using clWorkerLinkOwner = std::unique_ptr<clWorkerLink, void (*)(clWorkerLink*)>;

enum clConversionState : std::uint32_t {
    stateExamining = 0,
    stateConverting = 1,
    stateFinished = 2,
    stateCancelling = 3,
};

// Priority of the workers, as stored in the settings and as the menu of the progress form counts.
enum clWorkerPriority : std::uint32_t {
    priorityNormal = 0,
    priorityAboveNormal = 1,
    priorityBelowNormal = 2,
    priorityIdle = 3,
};

inline constexpr int maximumSlots = 16;

// What the settings say about the target of a batch. Fixed from its start, but for the chain text,
// to which the encoder may add an effect.
struct clConversionSetup {
    XString codecName; // the encoder's name
    XString encoderSettings;
    XString outputFolder;   // empty: beside the sources
    XString namingTemplate; // empty: the sources' names
    XString extension;      // with its dot; ".IGNORE" switches the overwrite check off
    XString chainText;
};

// To find records by their paths; as long as the text lives.
[[nodiscard]] inline std::string_view BytesOf(const XString& text) noexcept {
    return {reinterpret_cast<const char*>(text.Text()),
            static_cast<std::size_t>(text.Count()) * sizeof(wchar_t)};
}

struct clJobReport {
    XString source;
    XString output;
    XString text; // lines separated by CR LF; empty: nothing was reported
};

// One row per output: the planned ones first, then those that workers named themselves.
struct clBatchResult {
    XString source;
    XString output;
    std::uint32_t failed = 0; // non-zero: the conversion of this source reported an error
};

struct clLogEntry {
    XString codecName;
    XString source;
    XString output;
    XStringArray lines;
};

// A planned output that exists already. The asking form edits replacement path and skip flag.
struct clOverwriteItem {
    XString path;
    XString replacementPath;
    std::uint32_t skipFlag = 0; // non-zero: the file is left out
};

// Supervises one worker at a time. Lengths are milliseconds of play length, ticks those of
// GetTickCount (unsigned, wrapping).
struct clJobSlot {
    XString codecName; // this and the next three stay for the whole batch
    XString encoderSettings;
    XString chainText;
    std::uint32_t processorNumber = 0; // 1 and up; 0: any

    bool running = false;     // false is "free" to the scheduler
    bool hasFinished = false; // an idle row shows 100 percent then, else 0; never cleared
    std::int32_t shownPercent = -1;
    std::int32_t percent = 0; // only ever raised during a file; may exceed 100
    std::uint64_t length = 0;
    XString source;
    XString output;
    XStringArray reportedNames;

    bool suspended = false;
    std::uint32_t priority = priorityNormal;
    std::uint32_t lastLife = 0;      // tick of the last sign of life
    std::int64_t finishedUnits = -1; // length of a file that ended and was not yet collected

    XString errorText;
    clJobReport errorReport;
    XString informationText;
    clJobReport informationReport;

    XString shownText; // what the row's text control is to show
    XString action;
    XString actionInput;
    XString actionOutput;
    std::uint32_t tickCount = 0;  // supervision steps since launch
    std::uint32_t blankSince = 0; // tick at which the wanted text became empty; 0: it is not

    clWorkerLinkOwner link{nullptr, [](clWorkerLink*) {}}; // empty before the first launch
};
