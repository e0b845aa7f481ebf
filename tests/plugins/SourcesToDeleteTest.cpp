// Which sources may be deleted after a batch: any doubt keeps them.
#include "plugins/dsp/SourcesToDelete.h"

#include <gtest/gtest.h>

namespace {

struct Row {
    const wchar_t *source, *output;
    bool failed = false;
};
struct BatchRow {
    std::vector<Row> rows;
    const wchar_t* mayGo; // first letters of those sources
};
const BatchRow batchRows[] = {
    {{}, L""},
    {{{L"a", L"A.wav"}, {L"b", L"B.wav"}}, L"ab"},
    {{{L"a", L"A.wav"}, {L"b", L"B.wav", true}}, L"a"},
    {{{L"a", L"1"}, {L"b", L"2"}, {L"A", L"3", true}}, L"b"}, // one of its outputs failed
    {{{L"a", L"A"}}, L""},                                    // in its own place
    {{{L"a", L"x"}, {L"b", L"A", true}}, L""},                // what a failure has perhaps replaced
    {{{L"a", L"x"}, {L"b", L"X"}, {L"c", L"y"}}, L"c"},       // the later one stands
    {{{L"a", L"x"}, {L"a", L"x"}}, L"a"},                     // told twice
    {{{L"a", L""}}, L""},
};

TEST(SourcesToDelete, OnlySourcesWithoutADoubt) {
    for (const BatchRow& row : batchRows) {
        XTagList results;
        for (std::size_t i = 0; i < row.rows.size(); ++i) {
            const XString key = L"file" + DecimalText(static_cast<std::int64_t>(i + 1));
            results.Add(key + L"_in", row.rows[i].source);
            results.Add(key + L"_out", row.rows[i].output);
            if (row.rows[i].failed)
                results.Add(key + L"_conversionhaderrors", L"");
        }
        XString going;
        for (const ConvertedSource& source : ReadConvertedSources(results))
            if (source.mayGo)
                going += source.path;
        EXPECT_EQ(going, XString(row.mayGo)) << &row - batchRows;
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
