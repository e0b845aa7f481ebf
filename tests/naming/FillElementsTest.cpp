// What each element stands for, and who wins.
#include "naming/FillElements.h"

#include "foundation/XNumberText.h"
#include "host/clFileItem.h"
#include "naming/ExtraElements.h"

#include <gtest/gtest.h>

namespace {

class FillElementsTest : public testing::Test {
protected:
    void SetUp() override {
        LocaleNumbers().timeSeparator[0] = L':';
        item.sourcePath = L"f:\\Folder1\\Folder2\\song.x.flac";
        item.format.lengthMs = 5125955;
        item.format.frequency = 44100;
        item.format.channels = 1;
        item.format.bitsPerSample = 20;
        item.SetStage(stageTags);
    }
    void TearDown() override { zTMExtraElements.Clear(); }
    void Fill(const wchar_t* namingTemplate = L"") {
        ASSERT_TRUE(tags.Serialize(item.tagImage));
        ASSERT_TRUE(properties.Serialize(item.propertyImage));
        list.Clear();
        FillElements(item, L".m4a", namingTemplate, list);
    }
    clFileItem item;
    XTagList tags, properties, list;
};

struct Row {
    const wchar_t* key;
    const wchar_t* value;
};

} // namespace

TEST_F(FillElementsTest, WithoutTags) {
    Fill();
    constexpr Row rows[] = {
        {L"length", L"5125955"},
        {L"length_mmss", L"1.25.25"},
        {L"length_hhmmss", L"01.25.25"},
        {L"encoder", L""},
        {L"extension", L"m4a"},
        {L"origdrive", L"f:\\"},
        {L"origpath", L"Folder1\\Folder2"},
        {L"origfilename", L"song.x"},
        {L"protected", L"No"},
        {L"gapless", L"No"},
        {L"frequency", L"44100"},
        {L"channels", L"1"},
        {L"channels_subone", L"0"},
        {L"bits_per_sample", L"20"},
        {L"bytes_per_sample", L"2"},
        {L"title", L"song.x"},
        {L"artist", L""},
        {L"unique", L""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(list.Get(row.key), row.value) << row.key;
    EXPECT_EQ(list.Find(L"encoder"), nullptr);
    for (const wchar_t* key : {L"date", L"time", L"now_year", L"day_of_week"})
        EXPECT_NE(list.Get(key), L"") << key;
}

TEST_F(FillElementsTest, PropertiesAreTakenByName) {
    properties.Add(L"Encoder", L"LAME");
    properties.Add(L"Encoder Settings", L"V2");
    properties.Add(L"protected", L"Yes");
    properties.Add(L"ID Tag", L"ID3");
    properties.Add(L"Audio Quality", L"High");
    properties.Add(L"gapless", L"Yes");
    Fill();
    constexpr Row rows[] = {{L"encoder", L"LAME"}, {L"encoder+", L"V2"},        {L"protected", L"Yes"},
                            {L"id_tag", L"ID3"},   {L"audio_quality", L"High"}, {L"gapless", L"Yes"}};
    for (const Row& row : rows)
        EXPECT_EQ(list.Get(row.key), row.value) << row.key;
}

TEST_F(FillElementsTest, TheFilesOwnTagsWin) {
    tags.Add(L"Date", L"1999");
    tags.Add(L"title", L"");
    tags.Add(L"mood", L"calm");
    zTMExtraElements.Add(L"MOOD", L"extra");
    zTMExtraElements.Add(L"[station]", L"Radio");
    Fill();
    EXPECT_EQ(list.Get(L"date"), L"1999");
    EXPECT_EQ(list.Get(L"title"), L""); // the empty one stands in front of the source's name
    EXPECT_EQ(list.Get(L"mood"), L"calm");
    EXPECT_EQ(list.Get(L"[station]"), L"Radio");
    EXPECT_EQ(zTMExtraElements.Count(), 2);
}

TEST_F(FillElementsTest, UniqueNumbersOnDemand) {
    Fill(L"a [unique]");
    const std::int64_t first = list.Get(L"unique").ToInt();
    EXPECT_GE(first, 1);
    Fill(L"[UNIQUE]"); // no number for other spellings
    EXPECT_EQ(list.Find(L"unique"), nullptr);
    Fill(L"[unique][unique]");
    EXPECT_EQ(list.Get(L"unique").ToInt(), first + 1);
}

TEST_F(FillElementsTest, SourcesAtRootsAndSeparators) {
    struct SourceRow {
        const wchar_t* source;
        const wchar_t* drive;
        const wchar_t* path;
    };
    constexpr SourceRow rows[] = {
        {L"C:\\a.wav", L"C:\\", L""},
        {L"\\\\srv\\share\\m\\a.wav", L"\\\\srv\\", L"share\\m"},
        {L"\\\\?\\C:\\m\\a.wav", L"\\\\?\\C:\\", L"m"},
        {L"a.wav", L"", L"a.wav"},
    };
    for (const SourceRow& row : rows) {
        item.sourcePath = row.source;
        Fill();
        EXPECT_EQ(list.Get(L"origdrive"), row.drive);
        EXPECT_EQ(list.Get(L"origpath"), row.path);
    }
    LocaleNumbers().timeSeparator[0] = L'\'';
    Fill();
    EXPECT_EQ(list.Get(L"length_mmss"), L"1.25.25");
}

// The thread that reads ahead may be writing them.
TEST_F(FillElementsTest, UnfinishedRecordsAreLeftAlone) {
    tags.Add(L"artist", L"A");
    item.SetStage(stageFormat);
    Fill();
    EXPECT_EQ(list.Get(L"artist"), L"");
    EXPECT_EQ(list.Get(L"channels"), L"1");
    item.SetStage(stageNothing);
    Fill();
    EXPECT_EQ(list.Get(L"channels"), L"0");
}
