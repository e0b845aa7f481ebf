// Which choice completes a typed text.
#include "toolkit/PrefixCompletion.h"

#include <gtest/gtest.h>

namespace {

struct Row {
    const wchar_t* typed;
    std::int64_t expected;
};

TEST(PrefixCompletion, TakesTheFirstChoiceThatStartsSo) {
    static constexpr const wchar_t* choices[] = {L"", L"C:\\Music\\Two", L"c:\\music\\one", L"Z[", L"z{"};
    constexpr Row rows[] = {
        {L"c:\\MUSIC\\", 1}, {L"C:\\Music\\o", 2}, {L"C:\\Music\\Two", 1}, {L"C:\\Music\\Two and more", -1},
        {L"usic", -1},       {L"z{", 4}, // only letters fold: '[' and '{' are as far apart as 'A' and 'a'
        {L"", -1},
    };
    for (const Row& row : rows)
        EXPECT_EQ(FindCompletion(row.typed, 5, [](std::int64_t i) { return choices[i]; }), row.expected)
            << testing::PrintToString(XString(row.typed));
}

} // namespace
