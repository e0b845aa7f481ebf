#include "plugins/dsp/ReportText.h"

#include <gtest/gtest.h>

namespace {

struct ReportCase {
    const wchar_t* records; // key=value, separated by '|'
    const char* expected;
};

constexpr ReportCase cases[] = {
    {L"", "end\t0\n"},
    {L"file1_in=C:\\a.wav|file1_out=D:\\\u00e4.flac", "ok\tC:\\a.wav\tD:\\\xC3\xA4.flac\nend\t1\n"},
    {L"file1_in=a|file1_out=b|file1_conversionhaderrors=|file2_in=c|file2_out=d|file10_in=e|file10_out=f",
     "failed\ta\tb\nok\tc\td\nok\te\tf\nend\t3\n"},
    {L"file1_in=tab\there|file1_out=line\nend", "ok\ttab here\tline end\nend\t1\n"},
    // Damaged lists: what is no row is passed over.
    {L"file_in=x|filex_in=y|other=z|file1_in=a|file1_unknown=u", "ok\ta\t\nend\t1\n"},
};

TEST(ReportText, HasOneLinePerOutput) {
    for (const ReportCase& row : cases) {
        XTagList results;
        XStringArray records;
        if (row.records[0] != 0)
            Split(records, row.records, L"|");
        for (const XString& record : records) {
            const int equals = record.FindChar(L'=');
            results.Add(record.Left(equals - 1), record.From(equals + 1));
        }
        EXPECT_EQ(BuildReport(results), row.expected);
    }
}

} // namespace
