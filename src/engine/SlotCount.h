// How many workers may run at once and on which processors.
#pragma once

#include "engine/Records.h"

struct clSlotPlan {
    int count = 1;                          // 1 to maximumSlots
    std::uint32_t processors[maximumSlots]; // 0: any
};

// What the target encoder says about parallel work.
struct clEncoderAnswers {
    bool noMultiCpu = false;
    std::int32_t multiplier = 1; // of the shown speed, at least 1
};

// `fileCount` counts the files that are to be converted. Portable.
[[nodiscard]] clSlotPlan PlanSlots(int systemProcessors, bool noMultiCpu, std::int64_t fileCount,
                                   const XString& chainText);

// Windows only. Defaults if the encoder can't be loaded.
[[nodiscard]] clEncoderAnswers AskEncoder(const XString& codecName, const XString& encoderSettings);
[[nodiscard]] int SystemProcessors();
