// List file, extras and event against the real system.
#include "app/StartUp.h"

#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "foundation/XHandles.h"
#include "foundation/XTempFile.h"
#include "host/HandOff.h"
#include "naming/ExtraElements.h"

#include <gtest/gtest.h>

namespace {

void WriteBytes(const XString& path, const void* bytes, DWORD count) {
    XFile file(path);
    ASSERT_TRUE(file.Open(GENERIC_WRITE, CREATE_ALWAYS));
    ASSERT_TRUE(file.Write(bytes, count));
}

TEST(StartUp, TakesTheListSortedOnceAndDeletesIt) {
    XTempFile path;
    ASSERT_TRUE(path.MakeNew());
    constexpr wchar_t content[] = L"C:\\b\r\nC:\\a\r\nC:\\B\r\n";
    WriteBytes(path, content, sizeof(content) - 2);
    ASSERT_TRUE(SetFileAttributesW(path, FILE_ATTRIBUTE_READONLY));
    clFileList files;
    TakeListFile(path, files);
    ASSERT_EQ(files.Count(), 2);
    EXPECT_EQ(files[0].sourcePath, XString(L"C:\\a"));
    EXPECT_TRUE(files[1].sourcePath.EqualsNoCase(L"C:\\b"));
    EXPECT_FALSE(PathExists(path));
    TakeListFile(path, files);
    EXPECT_EQ(files.Count(), 2);
}

// Only a list that stands alone goes to a form that is there already.
TEST(StartUp, HandsALoneListToTheForm) {
    const XKernelHandle turn(CreateMutexW(nullptr, FALSE, L"tm-test-hand-off"));
    WaitForSingleObject(turn.Get(), 60000);
    constexpr wchar_t content[] = L"C:\\a";
    clCommandLine line;
    line.command = clCommand::loadList;
    XTempFile path;
    ASSERT_TRUE(path.MakeNew());
    WriteBytes(path, content, sizeof(content) - 2);
    line.listFile = path;
    {
        const XKernelHandle event = MakeHandOffEvent();
        clFileList mine;
        clFileList forms;
        line.isListAlone = true;
        EXPECT_FALSE(CarryOut(line, mine));
        EXPECT_EQ(mine.Count(), 0);
        EXPECT_TRUE(PathExists(path));
        EXPECT_TRUE(ReceiveHandOff(event.Get(), forms));
        EXPECT_EQ(forms.Count(), 1);
        line.isListAlone = false;
        EXPECT_TRUE(CarryOut(line, mine));
        EXPECT_EQ(mine.Count(), 1);
        EXPECT_FALSE(PathExists(path) || PathExists(HandOffPath()));
    }
    ReleaseMutex(turn.Get());
}

TEST(StartUp, ExtrasReplaceOnlyWhenRead) {
    XTagList list;
    list.Add(L"disc", L"2");
    XBuffer image;
    ASSERT_TRUE(list.Serialize(image));
    XTempFile path;
    ASSERT_TRUE(path.MakeNew());
    WriteBytes(path, image.data, static_cast<DWORD>(image.size));
    LoadExtraElements(path);
    LoadExtraElements(path);
    EXPECT_EQ(zTMExtraElements.Count(), 1);
    LoadExtraElements(path + L".none");
    EXPECT_EQ(zTMExtraElements.Get(L"disc"), XString(L"2"));
    WriteBytes(path, "", 0);
    LoadExtraElements(path);
    EXPECT_EQ(zTMExtraElements.Count(), 0);
}

TEST(StartUp, SignalsAWaitingProgram) {
    const XKernelHandle event(CreateEventW(nullptr, TRUE, FALSE, L"tm-test-got-files"));
    ASSERT_TRUE(event.IsValid());
    SignalEvent(L"tm-test-got-files");
    EXPECT_EQ(WaitForSingleObject(event.Get(), 0), WAIT_OBJECT_0);
}

} // namespace
