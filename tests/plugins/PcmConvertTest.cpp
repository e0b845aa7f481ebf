#include "plugins/common/PcmConvert.h"

#include "plugins/common/PcmFormat.h"
#include "plugins/encoder/MpegRates.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using Ints = std::vector<std::int32_t>;

Ints Converted(bool fromFloat, int fromBits, int toBits, const void* samples, std::size_t count) {
    DepthChanger depth;
    depth.Open(fromFloat, fromBits, toBits);
    const std::int32_t* result = depth.Convert(samples, count);
    return Ints(result, result + count);
}

struct DepthRow {
    int from, to;
    Ints in, expected;
};

TEST(PcmConvert, DepthsThatHoldEverythingAreExact) {
    const DepthRow rows[] = {
        {16, 16, {-32768, 0, 32767}, {-32768, 0, 32767}},
        {16, 24, {-32768, -1, 1, 32767}, {-8388608, -256, 256, 8388352}},
        {2, 8, {-2, -1, 0, 1}, {-128, -64, 0, 64}},
        {8, 32, {-128, 127}, {std::numeric_limits<std::int32_t>::min(), 127 << 24}},
        {24, 16, {-8388608, -256, 256, 8388352}, {-32768, -1, 1, 32767}}, // padded: no dither
        {32, 24, {std::numeric_limits<std::int32_t>::min(), 256}, {-8388608, 1}},
    };
    for (const DepthRow& row : rows)
        EXPECT_EQ(Converted(false, row.from, row.to, row.in.data(), row.in.size()), row.expected)
            << row.from << " to " << row.to;
}

TEST(PcmConvert, FloatsAreRoundedAndClipped) {
    const float in[] = {0.0f, 0.5f, -0.5f, 1.0f, -1.0f, 7.0f, -7.0f, std::nanf(""), INFINITY, -INFINITY};
    constexpr int top = 8388607, bottom = -8388608;
    const Ints expected = {0, 4194304, -4194304, top, bottom, top, bottom, 0, top, bottom};
    EXPECT_EQ(Converted(true, 32, 24, in, std::size(in)), expected);
    EXPECT_EQ(Converted(true, 32, 16, in, 3), (Ints{0, 16384, -16384}));
    constexpr float large[] = {1.0f, -1.0f};
    EXPECT_EQ(Converted(true, 32, 32, large, 2),
              (Ints{std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()}));
}

// Dither keeps what lies below the last bit as the mean, and its error within 1.5 steps.
TEST(PcmConvert, DitherKeepsTheMean) {
    constexpr std::size_t count = 20000;
    const Ints quarter(count, 1000 * 256 + 64);
    const std::vector<float> floats(count, -(1000.25f) / 32768);
    double sums[2] = {0, 0};
    const Ints results[2] = {Converted(false, 24, 16, quarter.data(), count),
                             Converted(true, 32, 16, floats.data(), count)};
    for (int kind = 0; kind < 2; ++kind)
        for (const std::int32_t value : results[kind]) {
            sums[kind] += value;
            ASSERT_LE(std::abs(std::abs(value) - 1000.25), 1.75);
        }
    EXPECT_NEAR(sums[0] / count, 1000.25, 0.03);
    EXPECT_NEAR(sums[1] / count, -1000.25, 0.03);
    const Ints loudest(100, 8388607);
    for (const std::int32_t value : Converted(false, 24, 16, loudest.data(), loudest.size()))
        ASSERT_TRUE(value >= 32765 && value <= 32767) << value; // never wraps
}

TEST(PcmFormat, RefusesWhatNobodyCouldEncode) {
    struct Row {
        std::uint16_t kind, channels, bits;
        std::uint32_t frequency;
        bool good;
    };
    constexpr Row rows[] = {{1, 2, 16, 44100, true}, {3, 1, 32, 8000, true},      {1, 0, 16, 44100, false},
                            {1, 2, 0, 44100, false}, {1, 2, 33, 44100, false},    {2, 2, 16, 44100, false},
                            {1, 2, 16, 0, false},    {1, 65535, 16, 44100, false}};
    for (const Row& row : rows) {
        AudioFormatRecord record{};
        record.sampleKind = row.kind;
        record.channels = row.channels;
        record.bitsPerSample = row.bits;
        record.frequency = row.frequency;
        record.channelMask = 0x3;
        PcmFormat format;
        XString error;
        EXPECT_EQ(ReadFormat(&record, format, error), row.good)
            << row.kind << " " << row.channels << " " << row.bits;
        EXPECT_EQ(error.IsEmpty(), row.good);
        if (row.good) { // a mask for another number of channels is dropped
            EXPECT_EQ(format.channelMask, row.channels == 2 ? 3u : 0u);
        }
    }
}

TEST(MpegRates, NeverLoseWhatTheFormatCanHold) {
    constexpr std::uint32_t rows[][2] = {{44100, 44100}, {8000, 8000},    {7999, 8000},
                                         {37800, 44100}, {48001, 48000},  {88200, 44100},
                                         {96000, 48000}, {176400, 44100}, {192000, 48000}};
    for (const auto& row : rows)
        EXPECT_EQ(MpegRateFor(row[0]), row[1]) << row[0];
}

} // namespace
