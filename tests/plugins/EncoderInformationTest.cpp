// What encoders tell the information log: results of tests, and what a target can't hold.
#include "EncoderDriver.h"

#include <gtest/gtest.h>

namespace {

struct InformationRow {
    const wchar_t* encoder;
    const wchar_t* settings;
    AudioFormatRecord format;
    const wchar_t* tag; // its name
    const wchar_t* expected;
};

TEST(EncoderInformation, NamesWhatIsLost) {
    const InformationRow rows[] = {
        {L"Wave", L"", PcmRecord(8, 24, 192000), L"lyrics", L""},
        {L"Wave", L"-format=\"16\"", FormatOf(1, 0, 48000), L"title",
         L"1 sample above full scale was clipped"},
        {L"AIFF", L"", FormatOf(1, 0, 48000), L"own key", L""},
        {L"Wave64", L"", FormatOf(1, 0, 48000), L"album artist",
         L"Wave64 can't hold these tags of the source: album artist"},
#ifdef TM_HAS_CODECS
        {L"FLAC", L"", FormatOf(1, 0, 48000), L"b=d",
         L"FLAC can't hold these tags of the source: b=d\n"
         L"FLAC can't hold floating point samples: they were rounded to 24 bit\n"
         L"1 sample above full scale was clipped"},
        {L"FLAC", L"", PcmRecord(2, 24, 96000), L"own key", L""},
        {L"ALAC", L"", PcmRecord(2, 32, 48000), L"own key",
         L"ALAC can't hold 32 bit samples: they were rounded to 24 bit"},
        {L"m4a AAC", L"", PcmRecord(2, 24, 176400), L"own key",
         L"AAC can't hold 176400 Hz: the audio was brought to 88200 Hz"},
        {L"mp3 (Lame)", L"", PcmRecord(6, 24, 96000), L"own key",
         L"mp3 can't hold 6 channels: they were mixed down to 2\n"
         L"mp3 can't hold 96000 Hz: the audio was brought to 48000 Hz"},
        {L"mp3 (Lame)", L"", PcmRecord(2, 24, 44100), L"lyrics", L""},
        {L"Ogg Vorbis", L"-abr=\"500\"", PcmRecord(1, 24, 8000), L"b=d",
         L"Ogg Vorbis can't hold this audio at 250 kbit/s: it was written at 42 kbit/s\n"
         L"Ogg Vorbis can't hold these tags of the source: b=d"},
        {L"Ogg Vorbis", L"", PcmRecord(2, 24, 352800), L"own key",
         L"Ogg Vorbis can't hold 352800 Hz: the audio was brought to 176400 Hz"},
        {L"Ogg Vorbis", L"-abr=\"128\"", PcmRecord(2, 24, 88200), L"own key",
         L"Ogg Vorbis with an average bit rate can't hold 88200 Hz: the audio was brought to 44100 Hz"},
        {L"Ogg Vorbis", L"", PcmRecord(1, 8, 4000), L"own key",
         L"Ogg Vorbis can't hold 4000 Hz: the audio was brought to 8000 Hz"},
        {L"WavPack", L"", FormatOf(2, 0, 192000), L"id3",
         L"WavPack can't hold these tags of the source: id3"},
        {L"Opus", L"", PcmRecord(3, 24, 96000), L"replaygain_track_peak",
         L"Opus can't hold 96000 Hz: the audio was brought to 48000 Hz\n"
         L"Opus can't hold these tags of the source: replaygain_track_peak"},
#endif
    };
    for (const InformationRow& row : rows) {
        SCOPED_TRACE(row.encoder);
        EncoderDriver encoder(row.encoder);
        XTagList tags;
        tags.Add(row.tag, L"x");
        std::vector<std::int32_t> samples = TestSignal(row.format, 100);
        if (row.format.sampleKind == ztSampleFloat) {
            samples[3] = 0x3FC00000; // 1.5
            samples[4] = 0x3F800000; // full scale
        }
        ASSERT_TRUE(encoder.Convert(row.format, samples, row.settings, &tags));
        EXPECT_EQ(encoder.Text(L"Information"), XString(row.expected));
    }
}

struct TestRow {
    AudioFormatRecord format;
    std::vector<std::int32_t> samples;
    const wchar_t* settings;
    const wchar_t* expected;
};

TEST(TestConversion, TellsLengthAndChecksums) {
    const TestRow rows[] = {
        // "123456789" and "abc" as samples: the known checksums of these texts
        {PcmRecord(1, 24, 8000),
         {0x333231, 0x363534, 0x393837},
         L"",
         L"Tested, and found sound: 3 samples (0.000 s), 8000 Hz, 1 channel, 24 bit, CRC-32 cbf43926, "
         L"MD5 25f9e794323b453885f5181f1b624d0b"},
        {PcmRecord(3, 8, 1),
         {'a', 'b', 'c'},
         L"-checksum=\"md5\"",
         L"Tested, and found sound: 1 sample (1.000 s), 1 Hz, 3 channels, 8 bit, "
         L"MD5 900150983cd24fb0d6963f7d28e17f72"},
        {FormatOf(2, 0, 44100), std::vector<std::int32_t>(88200), L"-checksum=\"none\"",
         L"Tested, and found sound: 44100 samples (1.000 s), 44100 Hz, 2 channels, 32 bit floating point"},
    };
    for (const TestRow& row : rows) {
        EncoderDriver encoder(L"Test Conversion");
        DeleteFileW(encoder.outputPath);
        EXPECT_FALSE(encoder.Convert(row.format, row.samples, row.settings)); // there is nothing to read
        EXPECT_EQ(GetFileAttributesW(encoder.outputPath), INVALID_FILE_ATTRIBUTES);
        EXPECT_EQ(encoder.Text(L"Information"), XString(row.expected));
    }
}

} // namespace
