// Which sources may be deleted after a batch: any doubt keeps them.
#include "plugins/dsp/SourcesToDelete.h"

#include "ResultList.h"

#include <gtest/gtest.h>

namespace {

struct BatchRow {
    const wchar_t* results;
    const wchar_t* mayGo; // first letters of those sources
};
constexpr BatchRow batchRows[] = {
    {L"", L""},
    {L"a>A.wav|b>B.wav", L"ab"},
    {L"a>A.wav|!b>B.wav", L"a"},
    {L"a>1|b>2|!A>3", L"b"}, // one of its outputs failed
    {L"a>A", L""},           // in its own place
    {L"a>x|!b>A", L""},      // what a failure has perhaps replaced
    {L"a>x|b>X|c>y", L"c"},  // the later one stands
    {L"a>x|a>x", L"a"},      // told twice
    {L"a>", L""},
};

TEST(SourcesToDelete, OnlySourcesWithoutADoubt) {
    for (const BatchRow& row : batchRows) {
        XString going;
        for (const ConvertedSource& source : ReadConvertedSources(ResultList(row.results)))
            if (source.mayGo)
                going += source.path;
        EXPECT_EQ(going, XString(row.mayGo)) << row.results;
    }
}

struct LengthRow {
    std::uint32_t sourceFrequency, sourceFlags;
    std::uint64_t sourceFrames, sourceMs;
    std::uint32_t outputFrequency, outputFlags;
    std::uint64_t outputFrames, outputMs;
    bool isSame;
};
constexpr std::uint32_t exact = ztFormatExactLength, lossless = ztFormatLossless;
constexpr LengthRow lengthRows[] = {
    {44100, exact, 44100, 1000, 44100, exact | lossless, 44100, 1000, true},
    {44100, exact, 44100, 1000, 44100, exact | lossless, 44099, 1000, false},
    {44100, exact, 44100, 1000, 48000, exact | lossless, 48000, 1000, true},
    {44100, exact, 44100, 1000, 44100, exact, 48500, 0, true},
    {44100, exact, 44100, 1000, 44100, exact, 48600, 0, false},
    {44100, 0, 0, 5000, 44100, 0, 0, 5100, true},
    {44100, 0, 0, 5000, 44100, 0, 0, 4899, false},
    {44100, 0, 0, 0, 44100, 0, 0, 0, false},
    {44100, exact, 0, 0, 44100, exact | lossless, 0, 0, false},
    {0, exact, 9, 9, 0, exact | lossless, 9, 9, false},
};

TEST(SourcesToDelete, LengthsMustAgree) {
    for (const LengthRow& row : lengthRows) {
        AudioFormatRecord source{}, output{};
        source.frequency = row.sourceFrequency;
        source.flags = row.sourceFlags;
        source.frameCount = row.sourceFrames;
        source.lengthMs = row.sourceMs;
        output.frequency = row.outputFrequency;
        output.flags = row.outputFlags;
        output.frameCount = row.outputFrames;
        output.lengthMs = row.outputMs;
        EXPECT_EQ(IsSameLength(source, output), row.isSame) << &row - lengthRows;
    }
}

} // namespace
