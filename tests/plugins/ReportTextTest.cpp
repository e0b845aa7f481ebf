#include "plugins/dsp/ReportText.h"

#include <gtest/gtest.h>

namespace {

struct ReportCase {
    const wchar_t* records; // key=value, separated by '|'; '!' ahead: in the list of errors
    const char* expected;
};

constexpr ReportCase cases[] = {
    {L"", "end\t0\n"},
    {L"file1_in=C:\\a.wav|file1_out=D:\\\u00e4.flac", "ok\tC:\\a.wav\tD:\\\xC3\xA4.flac\nend\t1\n"},
    {L"file1_in=a|file1_out=b|file1_conversionhaderrors=|file2_in=c|file2_out=d|file10_in=e|file10_out=f",
     "failed\ta\tb\nok\tc\td\nok\te\tf\nend\t3\n"},
    {L"file1_in=a|file1_out=b|file2_in=c|file2_conversionhaderrors=|file3_in=d|file3_conversionhaderrors=|"
     L"!file2_errors=one\ntwo\tthree|!file1_errors=of one that is well|!file9_errors=of none|!file2_in=x",
     "ok\ta\tb\nfailed\tc\t\tone two three\nfailed\td\t\nend\t3\n"},
    {L"file1_in=tab\there|file1_out=line\nend", "ok\ttab here\tline end\nend\t1\n"},
    // Damaged lists: what is no row is passed over.
    {L"file_in=x|filex_in=y|other=z|file1_in=a|file1_unknown=u", "ok\ta\t\nend\t1\n"},
};

TEST(ReportText, HasOneLinePerOutput) {
    for (const ReportCase& row : cases) {
        XTagList lists[2];
        XStringArray records;
        if (row.records[0] != 0)
            Split(records, row.records, L"|");
        for (const XString& record : records) {
            const int equals = record.FindChar(L'=');
            const int mark = record.CharAt(1) == L'!' ? 1 : 0;
            lists[mark].Add(record.Mid(mark + 1, equals - 1), record.From(equals + 1));
        }
        EXPECT_EQ(BuildReport(lists[0], lists[1]), row.expected);
    }
}

} // namespace
