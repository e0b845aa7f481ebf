// The processes of one click: as threads on one spool, and as real processes with a stand-in for Tonemill.
#include "../foundation/TestFolder.h"

#include "foundation/XFindFile.h"
#include "foundation/XHandles.h"
#include "foundation/XPath.h"
#include "host/ListFile.h"
#include "send/Gathering.h"

#include <atomic>
#include <thread>
#include <vector>

namespace {

class Gathering : public TestFolder {
protected:
    void SetUp() override {
        TestFolder::SetUp();
        place.name = L"tm-test-gather-" + NameOf(StripBackslash(folder));
        place.spool = folder + L"below\\spool.tmp";
    }
    clGatheringPlace place;
};

TEST_F(Gathering, EachPathEndsInOneListOnce) {
    constexpr int senders = 40;
    for (int round = 0; round < 3; ++round) {
        std::atomic<int> complete{0}, handedOver{0};
        XStringArray collected;
        std::vector<std::thread> threads;
        for (int i = 0; i < senders; ++i)
            threads.emplace_back([&, i] {
                XStringArray paths;
                paths.AddString(L"C:\\" + DecimalText(1000 + i));
                paths.AddString(L"C:\\" + DecimalText(1000 + i) + L"b");
                const clGathered answer = GatherPaths(place, std::uint64_t(i), paths);
                handedOver += answer == clGathered::handedOver;
                if (answer == clGathered::complete && complete++ == 0)
                    collected.CopyFrom(paths);
            });
        for (std::thread& thread : threads)
            thread.join();
        EXPECT_EQ(complete, 1);
        EXPECT_EQ(handedOver, senders - 1);
        ASSERT_EQ(collected.Count(), 2 * senders);
        for (int i = 0; i < senders; ++i)
            EXPECT_EQ(collected[2 * i + 1], L"C:\\" + DecimalText(1000 + i) + L"b");
        EXPECT_FALSE(PathExists(place.spool));
    }
}

TEST_F(Gathering, TheQuietLastsLongerOnABusyMachine) {
    struct Row {
        std::uint32_t quietMs;
        std::uint64_t delayMs;
        std::uint32_t expected;
    };
    constexpr Row rows[] = {
        {300, 0, 300}, {300, 100, 300}, {300, 150, 450}, {900, 150, 900}, {300, ~0u, 2000}};
    for (const Row& row : rows)
        EXPECT_EQ(QuietAfter(row.quietMs, row.delayMs), row.expected) << row.delayMs;
}

TEST_F(Gathering, KeepsItsPathsWhenTheSpoolCannotBeUsed) {
    XStringArray paths;
    paths.AddString(L"C:\\a");
    clGatheringPlace noFolder = place;
    Put(L"file", "", 0);
    noFolder.spool = folder + L"file\\spool.tmp";
    EXPECT_EQ(GatherPaths(noFolder, 1, paths), clGathered::alone);
    place.busyMs = 50;
    const XKernelHandle mutex(CreateMutexW(nullptr, FALSE, place.name));
    ASSERT_EQ(WaitForSingleObject(mutex.Get(), 5000), WAIT_OBJECT_0);
    std::thread([&] { EXPECT_EQ(GatherPaths(place, 1, paths), clGathered::alone); }).join();
    ReleaseMutex(mutex.Get());
    ASSERT_EQ(paths.Count(), 1);
    // A spool that a killed collector left is not part of this click.
    ASSERT_TRUE(MakeFolders(FolderOf(place.spool)));
    Put(L"below\\spool.tmp", L"0000000000000000 C:\\old\r\n", 48);
    EXPECT_EQ(GatherPaths(place, 1, paths), clGathered::complete);
    ASSERT_EQ(paths.Count(), 1);
    EXPECT_EQ(paths[0], XString(L"C:\\a"));
}

// ---- ZtSend.exe beside a stand-in for Tonemill and a decoder of .aaa -------------------------------

class SendProcess : public TestFolder {
protected:
    void SetUp() override {
        TestFolder::SetUp();
        const XString source = ProgramFolder();
        ASSERT_TRUE(MakeFolders(folder + L"decoder\\"));
        ASSERT_TRUE(CopyFileW(source + L"..\\..\\Tonemill\\ZtSend.exe", folder + L"ZtSend.exe", TRUE));
        ASSERT_TRUE(CopyFileW(source + L"send_fakes\\Tonemill.exe", folder + L"Tonemill.exe", TRUE));
        ASSERT_TRUE(
            CopyFileW(source + L"send_fakes\\decoder\\source.dll", folder + L"decoder\\source.dll", TRUE));
        job.Reset(CreateJobObjectW(nullptr, nullptr));
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        ASSERT_TRUE(
            SetInformationJobObject(job.Get(), JobObjectExtendedLimitInformation, &limits, sizeof limits));
    }
    void TearDown() override {
        job.Reset();
        TestFolder::TearDown();
    }
    void Send(const XString& arguments) {
        XString commandLine = Quote(folder + L"ZtSend.exe") + L" " + arguments;
        STARTUPINFOW start{};
        start.cb = sizeof start;
        PROCESS_INFORMATION process{};
        ASSERT_TRUE(CreateProcessW(nullptr, commandLine.Buffer(), nullptr, nullptr, FALSE, CREATE_SUSPENDED,
                                   nullptr, nullptr, &start, &process));
        AssignProcessToJobObject(job.Get(), process.hProcess);
        ResumeThread(process.hThread);
        CloseHandle(process.hThread);
        processes.emplace_back(process.hProcess);
    }
    // True if all ended well.
    bool WaitForAll() {
        bool good = true;
        for (const XKernelHandle& process : processes) {
            DWORD code = 99;
            good = WaitForSingleObject(process.Get(), 60000) == WAIT_OBJECT_0 &&
                   GetExitCodeProcess(process.Get(), &code) && code == 0 && good;
        }
        return good;
    }
    // The lists with which the stand-in was started, in any order.
    int TakenLists(XStringArray& lines) {
        int lists = 0;
        XFindFile taken(folder, L"taken-*.txt");
        XStringArray some;
        while (taken.Next() && ++lists)
            if (ReadListFile(taken.fullPath, some))
                for (const XString& line : some)
                    lines.AddString(NameOf(line));
        return lists;
    }
    XKernelHandle job;
    std::vector<XKernelHandle> processes;
};

TEST_F(SendProcess, ManyAtOnceStartTonemillOnce) {
    constexpr int count = 30;
    for (int i = 0; i < count; ++i)
        Send(Quote(folder + L"some file " + DecimalText(100 + i) + L".aaa"));
    EXPECT_TRUE(WaitForAll());
    XStringArray lines;
    EXPECT_EQ(TakenLists(lines), 1);
    ASSERT_EQ(lines.Count(), count);
    for (int i = 0; i < count; ++i)
        EXPECT_EQ(lines[i], L"some file " + DecimalText(100 + i) + L".aaa");
}

// As "Send to" hands them over: files and folders in one line, and what is no audio between them.
TEST_F(SendProcess, FoldersAreLookedThrough) {
    ASSERT_TRUE(MakeFolders(folder + L"al bum\\disc 2\\"));
    for (const wchar_t* name : {L"al bum\\1.aaa", L"al bum\\cover.jpg", L"al bum\\disc 2\\2.AAA"})
        Put(name, "", 0);
    Send(Quote(folder + L"al bum\\") + L" " + folder + L"note.txt " + folder + L"3.aaa");
    EXPECT_TRUE(WaitForAll());
    XStringArray lines;
    EXPECT_EQ(TakenLists(lines), 1);
    lines.SortTexts(true);
    ASSERT_EQ(lines.Count(), 3);
    EXPECT_EQ(lines[0] + lines[1] + lines[2], XString(L"1.aaa2.AAA3.aaa"));
}

} // namespace
