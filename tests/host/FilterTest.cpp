#include "host/DecoderFilter.h"
#include "host/TagFilter.h"

#include "foundation/XTagList.h"

#include <cstring>
#include <gtest/gtest.h>

namespace {

struct Format {
    const wchar_t* extension;
    const wchar_t* description;
};

// All elements, '|' for the carriage return and a line each.
template <std::size_t Count>
XString Built(const Format (&formats)[Count], bool allAudio) {
    XStringArray extensions;
    XStringArray descriptions;
    for (const Format& format : formats) {
        extensions.AddString(format.extension);
        descriptions.AddString(format.description);
    }
    DecoderFilterList list;
    list.AddString(L"old");
    BuildDecoderFilterList(list, extensions, descriptions, allAudio);
    XString all;
    for (const XString& element : list) {
        XString shown = element;
        shown.Replace(L"\r", L"|");
        all += shown + L"\n";
    }
    return all;
}

} // namespace

TEST(DecoderFilter, GroupsByDescription) {
    static constexpr Format formats[] = {
        {L".ogg", L"Ogg"}, {L".mp3", L"MPEG"}, {L".oga", L"Ogg"}, {L".MP3", L"MPEG"}, {L".aac", L"aac"},
    };
    EXPECT_EQ(Built(formats, true), XString(L"All Audio Files|*.ogg;*.mp3;*.oga;*.MP3;*.aac\n"
                                            L"aac  (*.aac)|*.aac\n"
                                            L"MPEG  (*.mp3; *.MP3)|*.mp3;*.MP3\n"
                                            L"Ogg  (*.ogg; *.oga)|*.ogg;*.oga\n"));
}

TEST(DecoderFilter, SpellingsOfADescriptionAreTwoGroups) {
    static constexpr Format formats[] = {{L".1", L"ogg"}, {L".2", L"Ogg"}, {L".3", L"ogg"}, {L".4", L"Ogg"}};
    EXPECT_EQ(Built(formats, false), XString(L"Ogg  (*.2; *.4)|*.2;*.4\nogg  (*.1; *.3)|*.1;*.3\n"));
}

TEST(DecoderFilter, NothingInstalledLeavesTheAllEntry) {
    DecoderFilterList list;
    BuildDecoderFilterList(list, {}, {}, true);
    ASSERT_EQ(list.Count(), 1);
    EXPECT_EQ(list[0], XString(L"All Audio Files\r"));
}

TEST(TagFilter, DropsRecordsAboveTheLimit) {
    struct Row {
        int keyLength, valueLength, blobBytes;
        bool stays;
    };
    static constexpr Row rows[] = {
        {5, 507, 0, true}, {5, 508, 0, false}, {5, 100, 814, true}, {5, 100, 815, false}, {512, 0, 0, true},
    };
    XTagList tags;
    XString expected;
    for (const Row& row : rows) {
        XString key;
        XString value;
        key.SetLength(row.keyLength);
        value.SetLength(row.valueLength);
        XTagItem* item = tags.Add(key, value);
        ASSERT_TRUE(item->blob.SetSize(row.blobBytes, false, true));
        if (row.stays)
            expected += DecimalText(row.keyLength) + L"," + DecimalText(row.valueLength) + L";";
    }
    XBuffer image;
    ASSERT_TRUE(tags.Serialize(image));
    XBuffer filtered;
    ASSERT_TRUE(FilterTagImage(image.data, image.size, filtered));
    XTagList left;
    left.Deserialize(filtered.data, static_cast<std::int64_t>(filtered.size));
    XString kept;
    for (std::int64_t i = 0; i < left.Count(); ++i)
        kept += DecimalText(left[i].key.Count()) + L"," + DecimalText(left[i].value.Count()) + L";";
    EXPECT_EQ(kept, expected);
}

TEST(TagFilter, RefusesListsOfNoSensibleLength) {
    XBuffer out;
    for (const std::uint32_t count : {0xffffffffu, tagCountLimit + 1}) {
        unsigned char image[64] = {};
        std::memcpy(image, &count, sizeof(count));
        EXPECT_FALSE(FilterTagImage(image, sizeof(image), out)) << count;
    }
    EXPECT_FALSE(FilterTagImage("ab", 2, out));
    const unsigned char cut[] = {2, 0, 0, 0, 200, 0, 0, 0, 'a', 0}; // claims more than it has
    ASSERT_TRUE(FilterTagImage(cut, sizeof(cut), out));
    EXPECT_EQ(out.size, 4u);
}
