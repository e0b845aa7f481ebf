// The effect "Batch Report" through its exports, where it can't write. What it writes, all end-to-end tests
// go by.
#include "EffectDriver.h"

namespace {

class BatchReport : public EffectDriver {
protected:
    BatchReport() : EffectDriver(L"Batch Report") {}
};

TEST_F(BatchReport, WithoutAFileItDoesNothing) {
    EXPECT_TRUE(EndBatch(L""));
    EXPECT_FALSE(EndBatch(L"-file=\"" + folder + L"no such folder\\report.txt\""));
    EXPECT_GT(LastError().Find(L"no such folder"), 0);
}

} // namespace
