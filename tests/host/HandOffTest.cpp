// Both sides of the hand-off against the real file and event.
#include "host/HandOff.h"

#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"
#include "foundation/XTempFile.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string_view>
#include <thread>
#include <vector>

namespace {

using namespace std::literals;

void WriteText(const XString& path, std::wstring_view text) {
    XFile file(path);
    ASSERT_TRUE(file.Open(GENERIC_WRITE, CREATE_ALWAYS));
    ASSERT_TRUE(file.Write(text.data(), static_cast<DWORD>(text.size() * sizeof(wchar_t))));
}

XString Joined(const clFileList& list) {
    XString all;
    for (const clFileItem& item : list)
        all += item.sourcePath + L"|";
    return all;
}

// There is one waiting file and one event per user: other test processes wait for their turn.
class HandOff : public testing::Test {
protected:
    HandOff() : turn(CreateMutexW(nullptr, FALSE, L"tm-test-hand-off")) {
        WaitForSingleObject(turn.Get(), 60000);
        DeleteOneFile(HandOffPath());
    }
    ~HandOff() override {
        DeleteOneFile(HandOffPath());
        ReleaseMutex(turn.Get());
    }
    static bool IsSignalled(const XKernelHandle& event) {
        return WaitForSingleObject(event.Get(), 0) == WAIT_OBJECT_0;
    }
    XKernelHandle turn;
    clFileList files;
};

TEST_F(HandOff, NeedsAForm) {
    XTempFile list;
    ASSERT_TRUE(list.MakeNew());
    WriteText(list, L"C:\\a");
    EXPECT_FALSE(TryHandOff(list));
    EXPECT_FALSE(TryHandOff(list)); // the first asking left no event behind
    EXPECT_FALSE(PathExists(HandOffPath()));
}

TEST_F(HandOff, ListsWaitOneBehindTheOther) {
    const XKernelHandle event = MakeHandOffEvent();
    ASSERT_TRUE(event.IsValid());
    DeleteTree(FolderOf(HandOffPath())); // the first hand-off of all makes the folder
    XTempFile first, second;
    ASSERT_TRUE(first.MakeNew() && second.MakeNew());
    WriteText(first, L"C:\\z\r\nC:\\m\n");
    WriteText(second, L"C:\\b\r\nC:\\Z\r\nC:\\a b\u00e4");
    EXPECT_FALSE(ReceiveHandOff(event.Get(), files));
    ASSERT_TRUE(TryHandOff(first));
    ASSERT_TRUE(TryHandOff(second));
    EXPECT_TRUE(PathExists(first) && PathExists(second));
    files.AppendUnique(L"c:\\B");
    EXPECT_TRUE(ReceiveHandOff(event.Get(), files));
    EXPECT_EQ(Joined(files), XString(L"c:\\B|C:\\m|C:\\z|C:\\a b\u00e4|"));
    EXPECT_FALSE(IsSignalled(event));
    EXPECT_FALSE(PathExists(HandOffPath()));
    EXPECT_FALSE(ReceiveHandOff(event.Get(), files));
}

TEST_F(HandOff, WhatIsTaken) {
    struct Row {
        std::wstring_view content;
        bool isTaken, isReadOnly;
        const wchar_t* files;
    };
    static constexpr Row rows[] = {
        {L""sv, false, false, L""},        {L"\uFEFF\0"sv, false, false, L""},
        {L"\r\n"sv, true, false, L""},     {L"C:\\a"sv, true, false, L"C:\\a|"},
        {L"\nb\r\n"sv, true, true, L"b|"},
    };
    const XKernelHandle event = MakeHandOffEvent();
    for (const Row& row : rows) {
        WriteText(HandOffPath(), row.content);
        const DWORD attributes = row.isReadOnly ? FILE_ATTRIBUTE_READONLY : FILE_ATTRIBUTE_NORMAL;
        EXPECT_TRUE(SetFileAttributesW(HandOffPath(), attributes));
        SetEvent(event.Get());
        files.Clear();
        EXPECT_EQ(ReceiveHandOff(event.Get(), files), row.isTaken) << row.content.data();
        EXPECT_EQ(Joined(files), XString(row.files));
        EXPECT_EQ(IsSignalled(event), !row.isTaken) << row.content.data();
        EXPECT_EQ(PathExists(HandOffPath()), !row.isTaken) << row.content.data();
    }
}

TEST_F(HandOff, ABusyFileIsTriedAgain) {
    const XKernelHandle event = MakeHandOffEvent();
    XTempFile list;
    ASSERT_TRUE(list.MakeNew());
    WriteText(list, L"C:\\a");
    ASSERT_TRUE(TryHandOff(list));
    {
        XFile busy(HandOffPath());
        ASSERT_TRUE(busy.Open(GENERIC_READ, OPEN_EXISTING));
        EXPECT_FALSE(TryHandOff(list));
        EXPECT_FALSE(ReceiveHandOff(event.Get(), files));
        EXPECT_TRUE(IsSignalled(event));
    }
    EXPECT_TRUE(ReceiveHandOff(event.Get(), files));
    EXPECT_EQ(Joined(files), XString(L"C:\\a|"));
}

TEST_F(HandOff, NothingIsLostBetweenManySenders) {
    constexpr int senders = 3;
    constexpr int lists = 50;
    static XTempFile list[senders][lists];
    for (int i = 0; i < senders * lists; ++i) {
        XTempFile& path = list[i / lists][i % lists];
        ASSERT_TRUE(path.MakeNew());
        WriteText(path, std::wstring_view((L"C:\\" + DecimalText(i)).Text()));
    }
    const XKernelHandle event = MakeHandOffEvent();
    std::atomic<int> running{senders};
    std::atomic<int> sent{0};
    std::vector<std::thread> threads;
    for (int sender = 0; sender < senders; ++sender) {
        threads.emplace_back([&, sender] {
            for (const XTempFile& path : list[sender])
                sent += TryHandOff(path);
            --running;
        });
    }
    int taken = 0;
    while (running > 0 || IsSignalled(event))
        taken += ReceiveHandOff(event.Get(), files);
    for (std::thread& thread : threads)
        thread.join();
    for (auto& some : list) {
        for (XTempFile& path : some)
            path.DeleteOwned();
    }
    EXPECT_GT(taken, 1);
    EXPECT_GT(sent, senders);
    EXPECT_EQ(files.Count(), sent); // all paths differ
    EXPECT_FALSE(PathExists(HandOffPath()));
}

} // namespace
