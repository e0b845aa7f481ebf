// Command lines, the spool and the keys of the entries.
#include "send/SendText.h"
#include "send/ExplorerEntries.h"

#include <gtest/gtest.h>

namespace {

XString Joined(const XStringArray& texts) {
    XString all;
    for (const XString& text : texts)
        all += text + L"|";
    return all;
}

TEST(SendText, CommandLines) {
    struct Row {
        const wchar_t* tail;
        const wchar_t* words;
        clSendCommand command;
    };
    static constexpr Row rows[] = {
        {L"", L"", clSendCommand::nothing},
        {L" \t \"\"", L"", clSendCommand::nothing},
        {L"\"C:\\a b.mp3\"", L"C:\\a b.mp3|", clSendCommand::sendPaths},
        {L"D:\\ \"C:\\\" \"E:\\x\\\"", L"D:\\|C:\\|E:\\x\\|", clSendCommand::sendPaths},
        {L"C:\\one.mp3  \"C:\\two, 2.mp3\"\tC:\\3", L"C:\\one.mp3|C:\\two, 2.mp3|C:\\3|",
         clSendCommand::sendPaths},
        {L"C:\\\"a b\"\\c", L"C:\\a b\\c|", clSendCommand::sendPaths},
        {L"\"C:\\unended a", L"C:\\unended a|", clSendCommand::sendPaths},
        {L"/register", L"/register|", clSendCommand::registerEntries},
        {L"/UNREGISTER", L"/UNREGISTER|", clSendCommand::unregisterEntries},
        {L"/register C:\\a", L"/register|C:\\a|", clSendCommand::sendPaths},
    };
    for (const Row& row : rows) {
        XStringArray words;
        SplitPaths(row.tail, words);
        EXPECT_EQ(Joined(words), XString(row.words)) << testing::PrintToString(XString(row.tail));
        EXPECT_EQ(CommandOf(words), row.command) << testing::PrintToString(XString(row.tail));
    }
}

XString Spool(std::uint64_t startTime, const wchar_t* paths) {
    XStringArray list;
    Split(list, paths, L"|");
    return SpoolText(startTime, list);
}

// They arrive as they like, and come out in the order in which Explorer started their processes.
TEST(SendText, TheSpoolKeepsTheOrderOfTheClick) {
    const XString text = Spool(0x2000000000u, L"C:\\d") + Spool(0x1F, L"C:\\c 1|C:\\c 0|C:\\c 2") +
                         Spool(2, L"C:\\b") + Spool(0x2000000000u, L"C:\\e") +
                         L"000000000000001F \r\nno line of ours\r\n" + Spool(0, L"C:\\a");
    XStringArray lines, paths;
    SplitLines(text, lines);
    PathsOfSpool(lines, paths);
    EXPECT_EQ(Joined(paths), XString(L"C:\\a|C:\\b|C:\\c 1|C:\\c 0|C:\\c 2|C:\\d|C:\\e|"));
    EXPECT_EQ(ListText(paths).Left(12), XString(L"C:\\a\r\nC:\\b\r\n"));
}

TEST(ExplorerEntries, EachExtensionOnceAndNoOtherKey) {
    XStringArray extensions, classes;
    Split(extensions, L".mp3|.FLAC|.Mp3||.|wav|.a\\b|.flac", L"|");
    ClassesWithVerb(extensions, classes);
    EXPECT_EQ(Joined(classes),
              XString(L"Directory|SystemFileAssociations\\.mp3|SystemFileAssociations\\.flac|"));
}

} // namespace
