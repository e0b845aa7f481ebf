// How many workers, and where.
#include "engine/SlotCount.h"

#include <gtest/gtest.h>

namespace {

TEST(SlotCount, FollowsProcessorsFilesEncoderAndForce) {
    struct Row {
        int system;
        bool noMultiCpu;
        std::int64_t files;
        const wchar_t* chain;
        int count;
        std::uint32_t first, second;
    };
    const Row rows[] = {
        {8, false, 3, L"", 3, 1, 2},
        {8, false, 100, L"", 8, 1, 2},
        {64, false, 100, L"", 16, 1, 2},
        {16, false, 1, L"", 1, 0, 2},
        {16, false, 0, L"", 16, 1, 2},
        {16, true, 100, L"", 1, 0, 2},
        {8, true, 1, L"-dspeffect1=\"Multi-CPU Force=-cpu3 -cpu5\"", 2, 3, 5},
        {8, false, 9, L"-dspeffect1=\"Multi-CPU Force=-cpu5 -cpu3 -noally\"", 2, 0, 0},
        {8, false, 9, L"-dspeffect1=\"Multi-CPU Force=-mode={qt}-cpu4{qt}\"", 1, 1, 2},
        {8, false, 1, L"-dspeffect1=\"Multi-CPU Force=\"", 1, 0, 2},
        {8, false, 9, L"-dspeffect1=\"multi-cpu force=-cpu3\"", 8, 1, 2},
        {8, false, 9, L"-dspeffect2=\"Multi-CPU Force=-cpu3\"", 8, 1, 2},
        {8, false, 9, L"-dspeffect1=\"Gain\" -dspeffect2=\"Multi-CPU Force=-cpu16 -cpu17\"", 1, 16, 2},
        {8, false, 9, L"-dspeffect1=\"Multi-CPU Force=-cpu3 -cpu4\" -dspeffect2=\"Multi-CPU Force=-cpu2\"", 1,
         2, 4},
    };
    for (const Row& row : rows) {
        const clSlotPlan plan = PlanSlots(row.system, row.noMultiCpu, row.files, row.chain);
        EXPECT_EQ(plan.count, row.count) << row.chain << row.system;
        EXPECT_EQ(plan.processors[0], row.first) << row.chain << row.system;
        EXPECT_EQ(plan.processors[1], row.second) << row.chain << row.system;
    }
}

} // namespace
