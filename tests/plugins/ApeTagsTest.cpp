#include "plugins/encoder/ApeTags.h"

#include <gtest/gtest.h>

namespace {

TEST(ApeTags, NameEveryRecordOnce) {
    XTagList tags;
    tags.Add(L"artist", L"Erste\rZw\u00e9ite");
    tags.Add(L"ALBUM ARTIST", L"x");
    tags.Add(L"year", L"1999-05-01");
    tags.Add(L"own key", L"y");
    tags.Add(L"Own Key", L"twice");
    tags.Add(L"k", L"too short");
    tags.Add(L"TAG", L"forbidden");
    tags.Add(L"b\u00fc", L"no ASCII");
    tags.Add(L"empty", L"");
    ASSERT_TRUE(tags.Add(L"picture", L"3;image/jpeg;Vorn")->blob.Set("a\0b", 3));
    ASSERT_TRUE(tags.Add(L"picture", L"4;image/png")->blob.Set("c", 1));
    ASSERT_TRUE(tags.Add(L"picture", L"3;image/png")->blob.Set("second", 6));
    LeftOutTags leftOut;
    std::string found;
    for (const ApeItem& item : ReadApeTags(tags, leftOut))
        found += item.name + (item.isBinary ? "~" : "=") + item.value + "|";
    EXPECT_EQ(found, std::string("Artist=Erste\0Zw\xC3\xA9ite|Album Artist=x|Year=1999-05-01|own key=y|"
                                 "Cover Art (Front)~Vorn.jpg\0a\0b|Cover Art (Back)~cover.png\0c|"
                                 "Cover Art (Other)~cover.png\0second|",
                                 157));
    EXPECT_EQ(leftOut.Text(L"X"),
              XString(L"X can't hold these tags of the source: Own Key, k, TAG, b\u00fc"));
}

} // namespace
