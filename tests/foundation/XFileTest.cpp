// Files on disk: reading, lines, boxes, long names.
#include "foundation/XFile.h"

#include "TestFolder.h"
#include "foundation/XPath.h"
#include "foundation/XTempFile.h"
#include "foundation/XThread.h"

#include <cstring>
#include <string>

namespace {

class XFileOnDisk : public TestFolder {};

XString Lines(const XString& path, bool wide) {
    XFile file(path);
    EXPECT_TRUE(file.Open(GENERIC_READ, OPEN_EXISTING));
    XString all;
    XString line;
    while (file.ReadLine(line, wide))
        all += L"<" + line + L">";
    EXPECT_TRUE(line.IsEmpty());
    return all;
}

} // namespace

TEST_F(XFileOnDisk, ShortReadAtTheEndIsNoFailure) {
    const XString path = Put(L"forty", std::string(40, 'x').data(), 40);
    XFile file(path);
    ASSERT_TRUE(file.Open(GENERIC_READ, OPEN_EXISTING));
    char buffer[100];
    bool failed = true;
    EXPECT_EQ(file.Read(buffer, 100, &failed), 40u);
    EXPECT_FALSE(failed);
    EXPECT_FALSE(file.Write("x", 1)); // opened for reading
    file.Close();
    EXPECT_EQ(file.Read(buffer, 1, &failed), 0u);
    EXPECT_TRUE(failed);
    EXPECT_FALSE(file.Write("x", 1));
    EXPECT_TRUE(file.Write(nullptr, 0));
    EXPECT_FALSE(file.Write(nullptr, 1));
    XBuffer whole;
    EXPECT_TRUE(ReadWholeFile(path, whole));
    EXPECT_EQ(whole.size, 40u);
    EXPECT_FALSE(ReadWholeFile(folder + L"missing", whole));
    EXPECT_FALSE(XFile().Open(GENERIC_READ, OPEN_EXISTING));
}

TEST_F(XFileOnDisk, ExclusiveOpenKeepsOthersOut) {
    XFile first(Put(L"one", "x", 1));
    XFile second(first.path);
    ASSERT_TRUE(first.Open(GENERIC_READ, OPEN_EXISTING, false, false));
    EXPECT_FALSE(second.Open(GENERIC_READ, OPEN_EXISTING));
    first.Close();
    EXPECT_TRUE(second.Open(GENERIC_READ, OPEN_EXISTING));
}

TEST_F(XFileOnDisk, LinesEndInThreeWays) {
    struct Row {
        const wchar_t *text, *expected;
    };
    XString atChunk; // CR and LF fall on both sides of the block that lines are read by
    atChunk.SetLength(255);
    const XString split = atChunk + L"\r\nb";
    const XString splitExpected = L"<" + atChunk + L"><b>";
    const XString splitNarrow = atChunk + atChunk + L" \r\nb";
    const XString splitNarrowExpected = L"<" + atChunk + atChunk + L" ><b>";
    const Row rows[] = {
        {L"a\r\nb\rc\nd", L"<a><b><c><d>"},
        {L"", L""},
        {L"\r\n\n\r", L"<><><>"},
        {L"a\r", L"<a>"},
        {split, splitExpected},
        {L"\r\r\nx", L"<><><x>"},
        {splitNarrow, splitNarrowExpected},
    };
    for (const Row& row : rows) {
        const XString text(row.text);
        const XString wide = Put(L"wide", text.Text(), static_cast<DWORD>(text.Count()) * 2);
        EXPECT_EQ(Lines(wide, true), row.expected);
        const XString narrow = Put(L"narrow", XString(text).ToNarrow(), static_cast<DWORD>(text.Count()));
        EXPECT_EQ(Lines(narrow, false), row.expected);
    }
    constexpr wchar_t marked[] = L"\xFEFF"
                                 L"a\0b\xFEFF\r\n\xFEFF"
                                 L"c";
    EXPECT_EQ(Lines(Put(L"marked", marked, sizeof marked - 2), true), L"<ab\xFEFF><c>");
    EXPECT_EQ(Lines(Put(L"odd", "a\0b", 3), true), L"<a>"); // half a unit at the end is none
}

TEST_F(XFileOnDisk, ReadingGoesOnBehindTheLine) {
    XFile file(Put(L"mixed", "one\r\nrest", 9));
    ASSERT_TRUE(file.Open(GENERIC_READ, OPEN_EXISTING));
    XString line;
    ASSERT_TRUE(file.ReadLine(line, false));
    char rest[10] = {};
    EXPECT_EQ(file.Read(rest, 9), 4u);
    EXPECT_STREQ(rest, "rest");
}

// The box is answered from a thread: first Retry, then Cancel.
TEST_F(XFileOnDisk, OpenAsksTheUser) {
    struct Asked {
        int boxes = 0;
    } asked;
    XThread answers;
    answers.Start(
        [](XEvent* quit, void* argument) {
            while (!quit->IsSet()) {
                const HWND box = FindWindowW(L"#32770", L"File Write Error");
                if (box && IsWindowVisible(box)) {
                    const int id = static_cast<Asked*>(argument)->boxes++ == 0 ? IDRETRY : IDCANCEL;
                    SendMessageW(box, WM_COMMAND, static_cast<WPARAM>(id), 0);
                    while (IsWindow(box) && !quit->IsSet())
                        Sleep(5);
                }
                Sleep(5);
            }
        },
        &asked, 0);
    XFile file(folder + L"no\\such\\file");
    EXPECT_FALSE(file.Open(GENERIC_WRITE, CREATE_ALWAYS, true));
    answers.Stop();
    EXPECT_EQ(asked.boxes, 2);
}

TEST_F(XFileOnDisk, TemporaryFilesGoWithTheirOwner) {
    XString first;
    XString second;
    {
        XTempFile file;
        ASSERT_TRUE(file.MakeNew(L"ZtT"));
        first = file;
        EXPECT_TRUE(IsFile(first));
        EXPECT_TRUE(NameOf(first).Left(3).EqualsNoCase(L"ZtT"));
        ASSERT_TRUE(file.MakeNewIn(folder + L"new\\", L"ZtT")); // a folder that is made for it
        second = file;
        EXPECT_FALSE(PathExists(first));
        EXPECT_TRUE(IsFile(second));
        EXPECT_EQ(FolderOf(second), folder + L"new\\");
    }
    EXPECT_FALSE(PathExists(second));
}
