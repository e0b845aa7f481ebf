// What every encoder library has in common at its border, beside what the checker of plug-ins finds out
// about all of them (tests/check/plugins.sh).
#include "EncoderDriver.h"

#include <gtest/gtest.h>

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
        SCOPED_TRACE(row.name);
        const EncoderDriver encoder(row.name);
        EXPECT_EQ(encoder.Text(L"Extension"), XString(row.extension));
        EXPECT_EQ(encoder.SettingsFault(row.goodSettings), XString());
        EXPECT_FALSE(encoder.SettingsFault(row.badSettings).IsEmpty());
        PluginParams params{};
        for (const wchar_t* key : {L"NoMultiCPU", L"RequiresDSP", L"DisableSameFolder"})
            EXPECT_EQ(encoder.library.AskGet(key, params), 0);
        EXPECT_EQ(encoder.library.AskGet(L"DisableConvertToFolder", params) == 0, row.hasFile);
        encoder.library.ShowConfig(nullptr, 0, 0, row.goodSettings); // what no panel shows stays
        EXPECT_EQ(encoder.library.RemoveConfig(nullptr), XString(row.goodSettings));
        EXPECT_EQ(encoder.library.ENC_Get(nullptr, L"Extension", &params), 0);
        EXPECT_EQ(encoder.library.AskGet(nullptr, params), 0);
        EXPECT_EQ(encoder.library.ENC_Get(encoder.library.instance, L"Extension", nullptr), 0);
    }
}

// The guess that users see before converting comes near what they get (loosely: signals differ).
TEST(EncoderContract, EstimatesTheSize) {
    for (const EncoderRow& row : encoders) {
        if (!row.hasFile)
            continue;
        SCOPED_TRACE(row.name);
        EncoderDriver encoder(row.name);
        AudioFormatRecord format = PcmRecord(2, 16, 44100);
        PluginParams params{};
        params.number = 2000;
        params.text1 = L"";
        params.data = &format;
        ASSERT_NE(encoder.library.AskGet(L"GetEstimatedFileSize", params), 0);
        ASSERT_TRUE(encoder.Convert(format, TestSignal(format, 88200)));
        EXPECT_GT(params.result, static_cast<std::int64_t>(encoder.bytes.size()) / 3);
        EXPECT_LT(params.result, static_cast<std::int64_t>(encoder.bytes.size()) * 3);
        params.data = nullptr;
        EXPECT_EQ(encoder.library.AskGet(L"GetEstimatedFileSize", params), 0);
    }
}

TEST(EncoderContract, FailuresNameTheFileOrTheSetting) {
    for (const EncoderRow& row : encoders) {
        if (!row.hasFile)
            continue;
        SCOPED_TRACE(row.name);
        EncoderDriver encoder(row.name);
        const AudioFormatRecord format = PcmRecord(2, 16, 44100);
        encoder.outputPath = TestedProgramFolder() + L"no such folder\\out";
        EXPECT_FALSE(encoder.Convert(format, TestSignal(format, 10)));
        EXPECT_GT(encoder.LastError().Find(encoder.outputPath), 0);
        EXPECT_FALSE(encoder.Convert(format, TestSignal(format, 10), row.badSettings));
        EXPECT_EQ(encoder.LastError(), encoder.SettingsFault(row.badSettings));
        EXPECT_EQ(encoder.library.ENC_BeginConversion(encoder.library.instance, nullptr), 0);
    }
}

} // namespace
