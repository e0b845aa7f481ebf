// What every encoder library has in common at its border.
#include "EncoderDriver.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

struct EncoderRow {
    const wchar_t* name;
    const wchar_t* extension;
    const wchar_t* goodSettings;
    const wchar_t* badSettings;
    bool hasFile = true;
};

constexpr EncoderRow encoders[] = {
    {L"Wave", L".wav", L"-format=\"24\" -rate=\"source\"", L"-format=\"20\""},
    {L"AIFF", L".aiff", L"-channels=\"1\"", L"-channels=\"9\""},
    {L"Wave64", L".w64", L"-format=\"float\"", L"-level=\"8\""},
    {L"Test Conversion", L".IGNORE", L"-checksum=\"md5\"", L"-checksum=\"sha\"", false},
#ifdef TM_HAS_CODECS
    {L"FLAC", L".flac", L"-level=\"8\" -verify", L"-level=\"9\""},
    {L"ALAC", L".m4a", L"-format=\"24\"", L"-format=\"32\""},
    {L"Ogg Vorbis", L".ogg", L"-quality=\"-1\"", L"-quality=\"2\" -abr=\"128\""},
    {L"WavPack", L".wv", L"-mode=\"high\" -extra=\"1\" -verify", L"-mode=\"max\""},
    {L"Opus", L".opus", L"-bitrate=\"96\" -mode=\"cbr\"", L"-bitrate=\"5\""},
    {L"m4a AAC", L".m4a", L"-bitrate=\"96\" -channels=\"1\"", L"-bitrate=\"8\""},
    {L"mp3 (Lame)", L".mp3", L"-abr=\"160\" -mode=\"joint\"", L"-vbr=\"2\" -cbr=\"128\""},
#endif
};

TEST(EncoderContract, AnswersItsKeys) {
    for (const EncoderRow& row : encoders) {
        SCOPED_TRACE(testing::PrintToString(XString(row.name)));
        EncoderDriver encoder(row.name);
        ASSERT_NE(encoder.instance, nullptr);
        PluginParams params{};
        EXPECT_NE(encoder.get(encoder.instance, L"Extension", &params), 0);
        EXPECT_EQ(XString(params.text1), XString(row.extension));
        for (const wchar_t* good : {L"", row.goodSettings}) {
            params = {};
            params.text1 = good;
            EXPECT_NE(encoder.get(encoder.instance, L"Check Settings", &params), 0);
        }
        params = {};
        params.text1 = row.badSettings;
        EXPECT_EQ(encoder.get(encoder.instance, L"Check Settings", &params), 0);
        EXPECT_NE(params.text2, nullptr);
        for (const wchar_t* key : {L"NoMultiCPU", L"RequiresDSP", L"DisableSameFolder", L"no such key"}) {
            params = {};
            EXPECT_EQ(encoder.get(encoder.instance, key, &params), 0);
            EXPECT_EQ(params.text2, nullptr);
        }
        params = {};
        EXPECT_EQ(encoder.get(encoder.instance, L"DisableConvertToFolder", &params) == 0, row.hasFile);
        encoder.showPanel(encoder.instance, nullptr, 0, 0, row.goodSettings); // what no panel shows stays
        EXPECT_EQ(XString(encoder.removePanel(encoder.instance, nullptr)), XString(row.goodSettings));
        EXPECT_EQ(encoder.get(nullptr, L"Extension", &params), 0);
        EXPECT_EQ(encoder.get(encoder.instance, nullptr, &params), 0);
        EXPECT_EQ(encoder.get(encoder.instance, L"Extension", nullptr), 0);
    }
}

// The guess that users see before converting comes near what they get (loosely: signals differ).
TEST(EncoderContract, EstimatesTheSize) {
    for (const EncoderRow& row : encoders) {
        if (!row.hasFile)
            continue;
        SCOPED_TRACE(testing::PrintToString(XString(row.name)));
        EncoderDriver encoder(row.name);
        AudioFormatRecord format = IntegerFormat(2, 16, 44100);
        PluginParams params{};
        params.number = 2000;
        params.text1 = L"";
        params.data = &format;
        ASSERT_NE(encoder.get(encoder.instance, L"GetEstimatedFileSize", &params), 0);
        ASSERT_TRUE(encoder.Convert(format, TestSignal(format, 88200)));
        EXPECT_GT(params.result, static_cast<std::int64_t>(encoder.bytes.size()) / 3);
        EXPECT_LT(params.result, static_cast<std::int64_t>(encoder.bytes.size()) * 3);
        params.data = nullptr;
        EXPECT_EQ(encoder.get(encoder.instance, L"GetEstimatedFileSize", &params), 0);
    }
}

TEST(EncoderContract, FailuresNameTheFile) {
    for (const EncoderRow& row : encoders) {
        if (!row.hasFile)
            continue;
        SCOPED_TRACE(testing::PrintToString(XString(row.name)));
        EncoderDriver encoder(row.name);
        const AudioFormatRecord format = IntegerFormat(2, 16, 44100);
        encoder.outputPath = TestedProgramFolder() + L"no such folder\\out";
        EXPECT_FALSE(encoder.Convert(format, TestSignal(format, 10)));
        EXPECT_GT(encoder.LastError().Find(encoder.outputPath), 0);
        EXPECT_FALSE(encoder.Convert(format, TestSignal(format, 10), row.badSettings));
        PluginParams params{};
        params.text1 = row.badSettings;
        EXPECT_EQ(encoder.get(encoder.instance, L"Check Settings", &params), 0);
        EXPECT_EQ(encoder.LastError(), XString(params.text2));
        EXPECT_EQ(encoder.begin(encoder.instance, nullptr), 0);
    }
}

// A cancelled file is closed: the worker can delete it at once, and the instance goes on.
TEST(EncoderContract, CancelledFilesAreClosed) {
    for (const EncoderRow& row : encoders) {
        if (!row.hasFile)
            continue;
        SCOPED_TRACE(testing::PrintToString(XString(row.name)));
        EncoderDriver encoder(row.name);
        const AudioFormatRecord format = IntegerFormat(2, 16, 44100);
        const std::vector<std::int32_t> samples = TestSignal(format, 5000);
        EncoderBeginBlock block{};
        block.size = sizeof block;
        block.outputPath = encoder.outputPath;
        block.format = &format;
        ASSERT_NE(encoder.begin(encoder.instance, &block), 0);
        ASSERT_NE(encoder.encode(encoder.instance, samples.data(), 5000), 0);
        EXPECT_NE(encoder.end(encoder.instance, 0), 0);
        EXPECT_TRUE(DeleteFileW(encoder.outputPath));
        EXPECT_TRUE(encoder.Convert(format, samples));
    }
}

// Tag images come from sources: none may make a conversion fail.
TEST(EncoderContract, HostileTagsDoNoHarm) {
    unsigned char garbage[300];
    for (std::size_t i = 0; i < sizeof garbage; ++i)
        garbage[i] = static_cast<unsigned char>(i * 37);
    const unsigned char endless[] = {0xFF, 0xFF, 0xFF, 0x7F, 0xFF, 0xFF, 0xFF, 0xFF, 'a', 0};
    for (const EncoderRow& row : encoders) {
        SCOPED_TRACE(testing::PrintToString(XString(row.name)));
        EncoderDriver encoder(row.name);
        const AudioFormatRecord format = IntegerFormat(1, 16, 44100);
        const std::pair<const unsigned char*, std::size_t> images[] = {{garbage, sizeof garbage},
                                                                       {endless, sizeof endless}};
        for (const auto& [bytes, size] : images) {
            EncoderBeginBlock block{};
            block.size = sizeof block;
            block.outputPath = encoder.outputPath;
            block.format = &format;
            block.tagData = bytes;
            block.tagDataSize = static_cast<std::uint32_t>(size);
            const std::int32_t sample = 0;
            EXPECT_NE(encoder.begin(encoder.instance, &block), 0);
            EXPECT_NE(encoder.encode(encoder.instance, &sample, 1), 0);
            EXPECT_NE(encoder.end(encoder.instance, 1), 0);
        }
    }
}

} // namespace
