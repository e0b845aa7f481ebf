#include "HostFixtureWin.h"

#include "foundation/XTagList.h"
#include "host/ReadAhead.h"

namespace {

class ReadAhead : public HostTest {
protected:
    void Fill(std::initializer_list<const wchar_t*> paths) {
        for (const wchar_t* path : paths)
            files.Append()->sourcePath = path;
    }
    void Run(bool withTags) {
        NeedsTags = withTags;
        XThread thread;
        thread.Start(ProbeSourceFiles, &work, readAheadStopMs);
        ASSERT_EQ(WaitForSingleObject(thread.thread.Get(), 30000), WAIT_OBJECT_0);
    }

    clFileList files;
    clReadAhead work{&files};
};

} // namespace

TEST_F(ReadAhead, FillsFormatThenTags) {
    Place(L"good", L"decoder\\good.dll");
    Fill({L"1.aaa", L"2.zzz", L"3!.bbb", L"4.bbb"});
    Run(false);
    for (const clFileItem& item : files) {
        EXPECT_EQ(item.Stage(), stageFormat);
        EXPECT_EQ(item.tagImage.size + item.propertyImage.size, 0u);
    }
    EXPECT_EQ(files[3].format.lengthMs, 5000000000u);
    EXPECT_EQ(files[3].format.reserved2[15], 77); // carried whole
    EXPECT_EQ(files[1].format.frequency, 0u);
    EXPECT_EQ(files[2].format.frequency, 0u);
    Run(true);
    for (const clFileItem& item : files)
        EXPECT_EQ(item.Stage(), stageTags);
    XTagList tags;
    tags.Deserialize(files[0].tagImage.data, static_cast<std::int64_t>(files[0].tagImage.size));
    EXPECT_EQ(tags.Count(), 1); // without the picture
    EXPECT_EQ(tags.Get(L"title"), XString(L"Blue"));
    XTagList properties;
    properties.Deserialize(files[0].propertyImage.data,
                           static_cast<std::int64_t>(files[0].propertyImage.size));
    EXPECT_EQ(properties.Count(), 2);
    EXPECT_EQ(files[2].tagImage.size, 0u);
}

TEST_F(ReadAhead, WhatIsReadIsNotReadAgain) {
    Place(L"good", L"decoder\\good.dll");
    Fill({L"1.aaa", L"2.aaa", L"3.aaa"});
    files[0].SetStage(stageFormat);
    files[1].SetStage(stageTags);
    Run(false);
    EXPECT_EQ(files[0].format.frequency, 0u);
    EXPECT_EQ(files[1].format.frequency, 0u);
    EXPECT_EQ(files[1].Stage(), stageTags);
    EXPECT_EQ(files[2].format.frequency, 44100u);
}

TEST_F(ReadAhead, EndsWhenTold) {
    Place(L"good", L"decoder\\good.dll");
    Fill({L"1.aaa"});
    XEvent quit;
    quit.Create();
    quit.Set();
    ProbeSourceFiles(&quit, &work);
    EXPECT_EQ(files[0].Stage(), stageNothing);
}

TEST_F(ReadAhead, AbsurdSizesOfImagesAreNotBelieved) {
    Place(L"absurd", L"decoder\\absurd.dll");
    Fill({L"1.abs"});
    Run(true);
    EXPECT_EQ(files[0].Stage(), stageTags);
    EXPECT_EQ(files[0].format.channels, 2);
    EXPECT_EQ(files[0].tagImage.size + files[0].propertyImage.size, 0u);
}
