#include "plugins/common/Settings.h"

#include <gtest/gtest.h>

namespace {

constexpr SettingsOption options[] = {
    {L"format", L"source|16|float"},
    {L"rate", L"source", 1000, 48000},
    {L"level", L"", 0, 8},
    {L"verify", L"", 0, 0, true},
};

struct CheckRow {
    const wchar_t* text;
    const wchar_t* error; // a part of it; null: accepted
};

constexpr CheckRow checkRows[] = {
    {nullptr, nullptr},
    {L"", nullptr},
    {L"   ", nullptr},
    {L"-format=\"16\"", nullptr},
    {L"-FORMAT=\"Float\" -rate=\"source\" --level 8", nullptr},
    {L"-verify", nullptr},
    {L"-verify=\"0\" -level=\"0\"", nullptr},
    {L"-format=\"24\"", L"source or 16 or float"},
    {L"-format=\"\"", L"-format can't be \"\""},
    {L"-format=\"16|float\"", L"-format can't be"},
    {L"-rate=\"999\"", L"a whole number from 1000 to 48000 or source"},
    {L"-rate=\"48001\"", L"-rate"},
    {L"-rate=\"44100.5\"", L"-rate"},
    {L"-rate=\"99999999999999999999\"", L"-rate"},
    {L"-level=\"9\"", L"0 to 8"},
    {L"-level=\"-1\"", L"0 to 8"},
    {L"-verify=\"2\"", L"-verify"},
    {L"-quality=\"3\"", L"Options are -format -rate -level -verify"},
    {L"-level=\"1\" -level=\"2\"", L"-level stands twice"},
    {L"rubbish", L"hold no option"},
};

TEST(Settings, TellWhatIsWrong) {
    for (const CheckRow& row : checkRows) {
        Settings settings;
        XString error;
        const bool good = settings.Parse(row.text, options, error);
        EXPECT_EQ(good, row.error == nullptr) << row.text;
        if (row.error) {
            EXPECT_GT(error.Find(row.error), 0) << error.Text();
        }
    }
}

TEST(Settings, GiveValuesAndDefaults) {
    Settings settings;
    XString error;
    ASSERT_TRUE(settings.Parse(L"-rate=\"8000\" -verify=\"0\" -format=\"source\"", options, error));
    EXPECT_EQ(settings.Number(L"rate", 1), 8000);
    EXPECT_EQ(settings.Number(L"format", 24), 24); // a word is no number
    EXPECT_EQ(settings.Number(L"level", 5), 5);
    EXPECT_FALSE(settings.Flag(L"verify"));
    EXPECT_EQ(settings.Word(L"format", L"16"), XString(L"source"));
    ASSERT_TRUE(settings.Parse(L"", options, error));
    EXPECT_FALSE(settings.Has(L"rate")); // nothing is left of the text before
}

} // namespace
