// The effect "Batch Report" through its exports, as the end of a batch calls it.
#include "EffectDriver.h"

#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"

#include <string>

namespace {

class BatchReport : public EffectDriver {
protected:
    BatchReport() : EffectDriver(L"Batch Report") {}
};

TEST_F(BatchReport, WantsNoAudio) {
    EXPECT_EQ(Begin(), 0);
}

TEST_F(BatchReport, WritesTheFileThatItsSettingsName) {
    XTempFile report;
    ASSERT_TRUE(report.MakeNew(L"rep")); // stands already: it is replaced
    XTagList results;
    results.Add(L"file1_in", L"C:\\a.wav");
    results.Add(L"file1_out", L"C:\\a.flac");
    results.Add(L"file1_conversionhaderrors", L"");
    XTagList errors;
    errors.Add(L"file1_errors", L"gone");
    EXPECT_TRUE(TellBatch(L"Batch Errors", errors, L""));
    EXPECT_TRUE(EndBatch(results, L"-file=\"" + report + L"\""));
    XBuffer bytes;
    ASSERT_TRUE(ReadWholeFile(report, bytes));
    EXPECT_EQ(std::string(bytes.Bytes(), bytes.Bytes() + bytes.size),
              "failed\tC:\\a.wav\tC:\\a.flac\tgone\nend\t1\n");
    EXPECT_FALSE(PathExists(report + L".tmp"));
}

TEST_F(BatchReport, WithoutAFileItDoesNothing) {
    EXPECT_TRUE(EndBatch(XTagList(), L""));
    EXPECT_FALSE(EndBatch(XTagList(), L"-file=\"" + TestedProgramFolder() + L"no such folder\\report.txt\""));
    EXPECT_GT(LastError().Find(L"no such folder"), 0);
}

} // namespace
