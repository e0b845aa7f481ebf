// The numbers and texts of the progress form.
#include "engine/ProgressText.h"

#include "foundation/XNumberText.h"

#include <gtest/gtest.h>

namespace {

TEST(ProgressText, ElapsedShowsTheTwoLargestParts) {
    struct Row {
        std::uint64_t seconds;
        const wchar_t *full, *brief;
    };
    const Row rows[] = {
        {0, L"", L""},
        {1, L"1 Second", L"1 Second"},
        {59, L"59 Seconds", L"59 Seconds"},
        {60, L"1 Minute 0 Seconds", L"1 Minute 0 Seconds"},
        {245, L"4 Minutes 5 Seconds", L"4 Minutes"},
        {3600, L"1 Hour 0 Minutes", L"1 Hour 0 Minutes"},
        {3 * 3600 + 12 * 60 + 9, L"3 Hours 12 Minutes", L"3 Hours 12 Minutes"},
        {4 * 3600 + 12 * 60, L"4 Hours 12 Minutes", L"4 Hours"},
        {86400 + 3600, L"1 Day 1 Hour", L"1 Day 1 Hour"},
        {5 * 86400, L"5 Days 0 Hours", L"5 Days"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(FormatElapsed(row.seconds, true), XString(row.full)) << row.seconds;
        EXPECT_EQ(FormatElapsed(row.seconds, false), XString(row.brief)) << row.seconds;
    }
}

TEST(ProgressText, SpeedLosesItsDecimalAboveFour) {
    LocaleNumbers() = XLocaleNumbers{};
    LocaleNumbers().loaded = true;
    struct Row {
        std::uint64_t units;
        std::uint32_t elapsed;
        std::int32_t multiplier;
        const wchar_t* text;
    };
    const Row rows[] = {
        {0, 1000, 1, L"0.0x Encoding Speed"},
        {4000, 1000, 1, L"4.0x Encoding Speed"},
        {4100, 1000, 1, L"4x Encoding Speed"},
        {4600, 1000, 1, L"5x Encoding Speed"},
        {1500, 1000, 2, L"3.0x Encoding Speed"},
        {3, 0, 1, L"3.0x Encoding Speed"},
        {~0ull, 0, 2, L"9000000000000000000x Encoding Speed"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(FormatSpeed(row.units, row.elapsed, row.multiplier), XString(row.text)) << row.units;
}

TEST(ProgressText, PercentAndRemainingTime) {
    struct Row {
        std::uint64_t done, total;
        std::uint32_t elapsed;
        std::int64_t percent;
        bool known;
        std::int64_t remaining;
    };
    const Row rows[] = {
        {0, 1000, 5000, 0, false, 0},
        {250, 1000, 5000, 25, true, 15000},
        {999, 1000, 9990, 99, true, 10},
        {1000, 1000, 5000, 100, true, 0},
        {0, 0, 5000, 0, false, 0},
        {5, 0, 5000, 500, true, 0},
        {1, 0xffffffffffffull, 4294967295u, 0, true, 9000000000000000000 - 4294967295},
    };
    for (const Row& row : rows) {
        std::int64_t remaining = -1;
        EXPECT_EQ(OverallPercent(row.done, row.total), row.percent) << row.done;
        EXPECT_EQ(RemainingMs(row.done, row.total, row.elapsed, remaining), row.known) << row.done;
        EXPECT_EQ(remaining, row.remaining) << row.done;
    }
}

TEST(ProgressText, PlusTravelsThroughTheBrackets) {
    struct Row {
        std::int64_t position, count;
        int place;
    };
    const Row rows[] = {{0, 3, 0},      {1, 3, 6},   {2, 3, 13}, {99, 100, 19},
                        {100, 100, 19}, {4, 100, 0}, {5, 100, 1}};
    for (const Row& row : rows) {
        XString blanks;
        blanks.SetLength(20);
        blanks.SetCharAt(row.place + 1, L'+');
        EXPECT_EQ(ExaminingText(row.position, row.count),
                  L"Examining Source & Overwrite Check      [" + blanks + L"]")
            << row.position;
    }
}

TEST(ProgressText, HeadingsCountFiles) {
    LocaleNumbers() = XLocaleNumbers{};
    LocaleNumbers().loaded = true;
    LocaleNumbers().thousandSeparator[0] = L',';
    EXPECT_EQ(StartHeading(1, L"MP3"), XString(L"Converting 1 File to MP3"));
    EXPECT_EQ(StartHeading(1234, L"MP3"), XString(L"Converting 1234 Files to MP3"));
    EXPECT_EQ(ProgressHeading(1000, 1234, L"MP3"), XString(L"Converting File 1,000 of 1,234 to MP3"));
    EXPECT_EQ(FinishedHeading(1, L"MP3"), XString(L"Converted 1 File to MP3"));
    EXPECT_EQ(FinishedHeading(1234, L"MP3"), XString(L"Converted 1,234 Files to MP3"));
    EXPECT_EQ(ProgressTitle(7), XString(L"[7%] Zephtone Tonemill"));
}

} // namespace
