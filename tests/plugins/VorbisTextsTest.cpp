// What Opus, Ogg Vorbis and FLAC share: channel orders, comments, pictures as text, gains of Opus.
#include "plugins/encoder/OpusGains.h"
#include "plugins/encoder/VorbisChannels.h"
#include "plugins/encoder/VorbisComments.h"

#include <gtest/gtest.h>

namespace {

struct OrderRow {
    int channels;
    std::uint32_t mask;
    std::vector<int> expected; // -1: silence
    const wchar_t* information = L"";
};

// The source's channels stand in the order of their speaker bits. Usual layouts are judged end to end.
TEST(VorbisChannels, PutsEachChannelInItsPlace) {
    const OrderRow rows[] = {
        {2, 0x30, {0, 1}},
        {3, 0x7, {0, 2, 1}},
        {4, 0x33, {0, 1, 2, 3}},
        {5, 0, {0, 2, 1, 3, 4}},
        {6, 0x60F, {0, 2, 1, 4, 5, 3}}, // at the sides
        {7, 0x70F, {0, 2, 1, 5, 6, 4, 3}},
        {3,
         0xB,
         {0, -1, 1, -1, -1, 2},
         L"X can't hold the places of these 3 channels alone: they were "
         L"written as 6, the others silent"},
        {4,
         0x107,
         {0, 2, 1, -1, -1, 3, -1},
         L"X can't hold the places of these 4 channels alone: they "
         L"were written as 7, the others silent"},
        {3,
         0x7000,
         {0, 2, 1},
         L"X can't hold the places of these 3 channels: they were given the usual ones"},
    };
    for (const OrderRow& row : rows) {
        SCOPED_TRACE(row.mask);
        PcmFormat source;
        source.channels = row.channels;
        source.channelMask = row.mask;
        VorbisChannels channels;
        channels.Choose(source);
        EXPECT_EQ(std::vector<int>(channels.from, channels.from + channels.count), row.expected);
        EXPECT_EQ(channels.Information(L"X", source), XString(row.information));
    }
    PcmFormat source;
    source.channels = 3;
    source.channelMask = 0xB;
    VorbisChannels channels;
    channels.Choose(source);
    const std::int32_t in[] = {-32768, 0, 16384};
    float out[6];
    channels.Convert(source, in, out, 1);
    EXPECT_EQ(std::vector<float>(out, out + 6), (std::vector<float>{-1, 0, 0, 0, 0, 0.5f}));
}

TEST(VorbisComments, HoldPicturesAsText) {
    XTagList tags;
    tags.Add(L"disc", L"1/2");
    tags.Add(L"coverart", L"YWJj"); // readers would take it for a picture
    ASSERT_TRUE(tags.Add(L"picture", L"3;image/png;d")->blob.Set("abc", 3));
    ASSERT_TRUE(tags.Add(L"picture", L"4;image/png;")->blob.Set("too much", 8));
    LeftOutTags leftOut;
    VorbisComments comments(140);
    comments.AddTags(tags, leftOut);
    comments.AddPictures(tags, leftOut);
    EXPECT_EQ(comments.fields,
              (std::vector<std::string>{"DISCNUMBER=1", "DISCTOTAL=2",
                                        "METADATA_BLOCK_PICTURE="
                                        "AAAAAwAAAAlpbWFnZS9wbmcAAAABZAAAAAAAAAAAAAAAAAAAAAAAAAADYWJj"}));
    EXPECT_EQ(leftOut.Text(L"X"), XString(L"X can't hold these tags of the source: coverart, cover art"));
}

TEST(OpusGains, TakeThePlaceOfReplayGain) {
    struct Row {
        const wchar_t *gain, *expected;
    };
    for (const Row& row : {Row{L"-3.21 dB", L"-2102"}, Row{L"+5", L"0"}, Row{L" 12.5 dB", L"1920"},
                           Row{L"dB", L""}, Row{L"-999", L""}}) {
        XTagList tags;
        LeftOutTags leftOut;
        tags.Add(L"REPLAYGAIN_TRACK_GAIN", row.gain);
        TurnIntoOpusGains(tags, leftOut);
        EXPECT_EQ(tags.Get(L"r128_track_gain"), XString(row.expected));
        EXPECT_EQ(tags.Count(), *row.expected ? 1 : 0);
        EXPECT_EQ(leftOut.Text(L"X").IsEmpty(), *row.expected != 0);
    }
    XTagList tags;
    LeftOutTags leftOut;
    tags.Add(L"r128_album_gain", L"7");
    tags.Add(L"replaygain_album_gain", L"1 dB");
    tags.Add(L"replaygain_album_peak", L"0.9");
    TurnIntoOpusGains(tags, leftOut);
    EXPECT_EQ(tags.Count(), 1);
    EXPECT_EQ(tags.Get(L"r128_album_gain"), XString(L"7"));
    EXPECT_EQ(leftOut.Text(L"X"), XString(L"X can't hold these tags of the source: replaygain_album_peak"));
}

} // namespace
