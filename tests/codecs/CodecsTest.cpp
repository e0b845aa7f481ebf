// Each codec library that no other test drives does one piece of its work, so that one that does not link, or
// computes nonsense, is found before a plug-in uses it.
#include "Sound.h"

#include <gtest/gtest.h>

#include <ebur128.h>
#include <soxr.h>
#include <zlib.h>

#include <cmath>
#include <initializer_list>
#include <numbers>

namespace {

// A second of two sines that 16 bits hold exactly, so that lossless means equal.
Sound Sines(int rate, double leftHertz, double rightHertz) {
    Sound sound;
    sound.rate = rate;
    for (int i = 0; i < rate; ++i)
        for (double hertz : {leftHertz, rightHertz}) {
            const double value = std::sin(2 * std::numbers::pi * hertz * i / rate);
            sound.samples.push_back(static_cast<float>(std::lround(value * 16000)) / 32768.0f);
        }
    return sound;
}

// Of the difference, in dB below the signal, without `margin` samples at both ends.
double NoiseBelow(const std::vector<float>& expected, const std::vector<float>& found, size_t margin) {
    double signal = 0, noise = 0;
    for (size_t i = margin; i + margin < expected.size() && i < found.size(); ++i) {
        signal += expected[i] * expected[i];
        noise += (expected[i] - found[i]) * (expected[i] - found[i]);
    }
    return noise == 0 ? 999 : 10 * std::log10(signal / noise);
}

// EBML: an element with a size of eight bytes.
Bytes Element(uint32_t id, const Bytes& content) {
    Bytes result;
    for (int shift = 24; shift >= 0; shift -= 8)
        if (id >> shift)
            result.push_back(static_cast<uint8_t>(id >> shift));
    result.push_back(1);
    for (int shift = 48; shift >= 0; shift -= 8)
        result.push_back(static_cast<uint8_t>(static_cast<uint64_t>(content.size()) >> shift));
    result.insert(result.end(), content.begin(), content.end());
    return result;
}

Bytes Join(std::initializer_list<Bytes> parts) {
    Bytes result;
    for (const Bytes& part : parts)
        result.insert(result.end(), part.begin(), part.end());
    return result;
}

Bytes Text(const char* text) {
    return Bytes(text, text + std::char_traits<char>::length(text));
}

} // namespace

TEST(Codecs, EncodersAndDecodersAgree) {
    struct Row {
        const char* name;
        Bytes (*encode)(const Sound&);
        int rate;
        double decibels; // least distance of the noise
        size_t longer;   // most samples per channel beyond the source's
    };
    const Row rows[] = {
        {"WavPack", EncodeWavPack, 44100, 999, 0},
        {"ALAC in m4a", [](const Sound& s) { return EncodeByFFmpeg(s, "alac", "ipod"); }, 44100, 999, 0},
        {"ALAC in caf", [](const Sound& s) { return EncodeByFFmpeg(s, "alac", "caf"); }, 44100, 999, 0},
        {"AAC in m4a", [](const Sound& s) { return EncodeByFFmpeg(s, "aac", "ipod"); }, 44100, 25, 1024},
        {"AAC in mp4", [](const Sound& s) { return EncodeByFFmpeg(s, "aac", "mp4"); }, 44100, 25, 1024},
        {"Vorbis", EncodeVorbis, 44100, 25, 0},
        {"Opus", EncodeOpus, 48000, 20, 400},
    };
    for (const Row& row : rows) {
        const Sound source = Sines(row.rate, 440, 1234);
        const Sound decoded = Decode(row.encode(source));
        EXPECT_EQ(decoded.rate, row.rate) << row.name;
        EXPECT_GE(decoded.samples.size(), source.samples.size()) << row.name;
        EXPECT_LE(decoded.samples.size(), source.samples.size() + 2 * row.longer) << row.name;
        EXPECT_GE(NoiseBelow(source.samples, decoded.samples, row.decibels == 999 ? 0 : 4000), row.decibels)
            << row.name;
    }
}

TEST(Codecs, SoxrChangesTheRate) {
    const Sound source = Sines(44100, 440, 1234), ideal = Sines(48000, 440, 1234);
    std::vector<float> changed(ideal.samples.size() + 2000);
    size_t read = 0, written = 0;
    const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_VHQ, 0);
    ASSERT_FALSE(soxr_oneshot(44100, 48000, 2, source.samples.data(), source.samples.size() / 2, &read,
                              changed.data(), changed.size() / 2, &written, nullptr, &quality, nullptr));
    EXPECT_NEAR(static_cast<double>(written), 48000, 1);
    EXPECT_GE(NoiseBelow(ideal.samples, changed, 8000), 80); // the sources are rounded to 16 bits
}

TEST(Codecs, Ebur128MeasuresLoudness) {
    // by definition a sine of 997 Hz at full scale has -3.01 LUFS in one channel, 0 LUFS in two
    const Sound source = Sines(48000, 997, 997);
    ebur128_state* state = ebur128_init(2, 48000, EBUR128_MODE_I | EBUR128_MODE_TRUE_PEAK);
    ASSERT_TRUE(state);
    ASSERT_EQ(ebur128_add_frames_float(state, source.samples.data(), 48000), EBUR128_SUCCESS);
    double loudness = 0, peak = 0;
    EXPECT_EQ(ebur128_loudness_global(state, &loudness), EBUR128_SUCCESS);
    EXPECT_EQ(ebur128_true_peak(state, 0, &peak), EBUR128_SUCCESS);
    ebur128_destroy(&state);
    EXPECT_NEAR(loudness, 20 * std::log10(16000.0 / 32768), 0.05);
    EXPECT_NEAR(peak, 16000.0 / 32768, 0.005);
}

TEST(Codecs, CompressedMatroskaOpens) {
    const Sound source = Sines(8000, 440, 1234);
    Bytes pcm;
    for (float sample : source.samples) {
        const auto value = static_cast<int16_t>(std::lround(sample * 32768));
        pcm.push_back(static_cast<uint8_t>(value & 255));
        pcm.push_back(static_cast<uint8_t>(value >> 8));
    }
    uLongf size = compressBound(static_cast<uLong>(pcm.size()));
    Bytes packed(size);
    ASSERT_EQ(compress2(packed.data(), &size, pcm.data(), static_cast<uLong>(pcm.size()), 9), Z_OK);
    packed.resize(size);

    const Bytes compression = Element(0x6D80, Element(0x6240, Element(0x5034, Element(0x4254, {0}))));
    // 8000 Hz as a big-endian float
    const Bytes audio =
        Element(0xE1, Join({Element(0xB5, {0x45, 0xFA, 0, 0}), Element(0x9F, {2}), Element(0x6264, {16})}));
    const Bytes track = Element(0xAE, Join({Element(0xD7, {1}), Element(0x73C5, {1}), Element(0x83, {2}),
                                            Element(0x86, Text("A_PCM/INT/LIT")), audio, compression}));
    // track 1, time 0, a key frame
    const Bytes cluster =
        Element(0x1F43B675, Join({Element(0xE7, {0}), Element(0xA3, Join({{0x81, 0, 0, 0x80}, packed}))}));
    const Bytes file = Join({Element(0x1A45DFA3, Element(0x4282, Text("matroska"))),
                             Element(0x18538067, Join({Element(0x1654AE6B, track), cluster}))});
    EXPECT_EQ(Decode(file).samples, source.samples);
}
