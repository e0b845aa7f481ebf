#include "host/clFileList.h"

#include <gtest/gtest.h>

namespace {

XString Joined(const clFileList& list) {
    XString all;
    for (const clFileItem& item : list)
        all += item.sourcePath + L" ";
    return all;
}

} // namespace

TEST(FileList, AppendingAllGivesWhatOneByOneGives) {
    struct Row {
        const wchar_t* present;
        const wchar_t* lines;
    };
    static constexpr Row rows[] = {
        {L"", L"a,A,b,B,b,c"}, {L"c,a,C2", L"A,b,c,d"}, {L"z,y", L"a,b"},         {L"a,b", L"x,y"},
        {L"b", L"a,c,b,a,d"},  {L"", L"c,b,a,B,C,d,D"}, {L"m", L"M,m,n,a,M,N,o"}, {L"a,a,b", L"a,B"},
    };
    for (const Row& row : rows) {
        clFileList one;
        clFileList other;
        XStringArray present;
        XStringArray lines;
        Split(present, row.present, L",");
        Split(lines, row.lines, L",");
        for (const XString& path : present) {
            one.Append()->sourcePath = path;
            other.Append()->sourcePath = path;
        }
        std::int64_t added = 0;
        for (const XString& line : lines)
            added += one.AppendUnique(line) ? 1 : 0;
        EXPECT_EQ(other.AppendAllUnique(lines), added);
        EXPECT_EQ(Joined(other), Joined(one));
    }
}
