// Which option does what, and what a line comes to.
#include "app/CommandLine.h"

#include <gtest/gtest.h>

namespace {

clCommandLine Read(const wchar_t* tail) {
    const XString line = XString(L"\"C:\\p q\\Tonemill.exe\" ") + tail;
    XKeyValueList options;
    options.ParseCommandLine(line);
    return ReadCommandLine(options, CommandLineTail(line));
}

struct CommandRow {
    const wchar_t* tail;
    clCommand command;
    const wchar_t* listFile;
    const wchar_t* codec;
    bool skipSetUp, isListAlone;
};

TEST(CommandLine, Outcomes) {
    using enum clCommand;
    constexpr CommandRow rows[] = {
        {L"", goOn, L"", L"", false, false},
        {L"   ", goOn, L"", L"", false, false},
        {L"-list_to_conv=\"C:\\a b.txt\"", loadList, L"C:\\a b.txt", L"", false, true},
        {L"--LIST_TO_CONV C:\\a.txt", loadList, L"C:\\a.txt", L"", false, true},
        {L"-list_to_conv=", unknown, L"", L"", false, false},
        {L"-list_to_conv=a -list_to_conv=b", loadList, L"a", L"", false, false},
        {L"-list_to_conv=a -conv_to_format=\"Wave\" -skip_ready_to_conv", loadList, L"a", L"Wave", true,
         false},
        {L"-skip_ready_to_conv", unknown, L"", L"", true, false},
        {L"-conv_to_format=\"Wave\" song.mp3", unknown, L"", L"Wave", false, false},
        {L"song.mp3", unknown, L"", L"", false, false},
        {L"<config>", startConfig, L"", L"", false, false},
        {L"  <config>  ", startConfig, L"", L"", false, false},
        {L"<Config>", unknown, L"", L"", false, false},
        {L"<install>", refuseInstall, L"", L"", false, false},
    };
    for (const CommandRow& row : rows) {
        const clCommandLine line = Read(row.tail);
        SCOPED_TRACE(testing::PrintToString(XString(row.tail)));
        EXPECT_EQ(static_cast<int>(line.command), static_cast<int>(row.command));
        EXPECT_EQ(line.listFile, XString(row.listFile));
        EXPECT_EQ(line.codec, XString(row.codec));
        EXPECT_EQ(line.skipSetUp, row.skipSetUp);
        EXPECT_EQ(line.isListAlone, row.isListAlone);
    }
}

TEST(CommandLine, TakesEventAndExtras) {
    const clCommandLine line =
        Read(L"-dynamic_naming_extras=\"x y.bin\" -list_to_conv=l -signal_event_got_files=evt");
    EXPECT_EQ(line.extrasFile, XString(L"x y.bin"));
    EXPECT_EQ(line.signalEvent, XString(L"evt"));
    EXPECT_EQ(Read(L" -bad \"x  ").text, XString(L"-bad \"x"));
}

} // namespace
