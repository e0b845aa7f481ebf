// Durations in each form.
#include "foundation/XDurationText.h"

#include "foundation/XNumberText.h"

#include <gtest/gtest.h>

TEST(XDurationText, EachMode) {
    const XLocaleNumbers kept = LocaleNumbers();
    LocaleNumbers() = XLocaleNumbers{};
    LocaleNumbers().loaded = true;
    LocaleNumbers().decimalSeparator[0] = L',';
    struct Row {
        std::int64_t milliseconds;
        int mode;
        const wchar_t* expected;
    };
    constexpr Row rows[] = {
        {3723045, durationWords, L"1 hour 2 minutes"},
        {3723045, durationShort, L"1:02:03"},
        {3723045, durationLong, L"01:02:03"},
        {3723045, durationMilli, L"01:02:03,045"},
        {3723045, durationWholeSeconds, L"1 hour 2 minutes"},
        {3723045, 5, L""},
        {7200000, durationWords, L"2 hours"},
        {3600000 + 59999, durationWords, L"1 hour"}, // seconds are left out
        {61999, durationWords, L"1 minute 1 second"},
        {120000, durationWords, L"2 minutes"},
        {0, durationWords, L"0"},
        {1, durationWords, L"1 mili-second"},
        {500, durationWords, L"500 mili-seconds"},
        {500, durationWholeSeconds, L"0"},
        {1000, durationWords, L"1 second"},
        {1040, durationWords, L"1 seconds"}, // the decimal rounds away, the plural stays
        {1500, durationWords, L"1,5 seconds"},
        {1500, durationWholeSeconds, L"1 second"},
        {125955, durationShort, L"2:05"},
        {125955, durationLong, L"00:02:05"},
        {999, durationShort, L"0:00"},
        {360000000, durationLong, L"100:00:00"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(FormatDuration(row.milliseconds, row.mode), row.expected)
            << row.milliseconds << " " << row.mode;
    LocaleNumbers() = kept;
}
