#include "worker/CommandText.h"

#include <gtest/gtest.h>

namespace {

const XString head = L" -infile=\"C:\\in put.wav\" -outfile=\"C:\\\u00fc\\o.mp3\" -convert_to=\"mp3 (Lame)\""
                     L" -evtquit=\"q1\" -evtwatchdog=\"w1\" -batchid=\"4294967295\"";

struct TailRow {
    const wchar_t* tail; // behind the six switches that every command has
    int processor;
    clWorkerPriority priority;
    const wchar_t* tempFolder;
    const wchar_t* chain;
    const wchar_t* settings;
};
constexpr TailRow tailRows[] = {
    {L"", 0, workerNormal, L"", L"", L""},
    {L" ", 0, workerNormal, L"", L"", L""},
    {L" -processor=\"2\" -tmpfolder=\"D:\\t\\\" -priority=\"idle\" ", 2, workerIdle, L"D:\\t\\", L"", L""},
    {L" -priority=\"low\"  two  blanks ", 0, workerLow, L"", L"", L" two  blanks "},
    {L" -priority=\"high\" -dspeffect1=\"A=x={qt}\" -dspeffect2=\"B=\" -q=\"5\"", 0, workerHigh, L"",
     L"-dspeffect1=\"A=x={qt}\" -dspeffect2=\"B=\"", L"-q=\"5\""},
    // Settings may use every name once more.
    {L" -infile=\"x\" -priority=\"low\"", 0, workerNormal, L"", L"", L"-infile=\"x\" -priority=\"low\""},
    {L" -priority=\"low\" -processor=\"7\"", 0, workerLow, L"", L"", L"-processor=\"7\""},
    {L" -dspeffect1=\"A=\" -dspeffect1=\"mine\" -outfile=\"z\"", 0, workerNormal, L"", L"-dspeffect1=\"A=\"",
     L"-dspeffect1=\"mine\" -outfile=\"z\""},
    {L" -dspeffect1=\"A=\" -batchid=\"3\"", 0, workerNormal, L"", L"-dspeffect1=\"A=\"", L"-batchid=\"3\""},
    {L" -priority=\"best\"", 0, workerNormal, L"", L"", L"-priority=\"best\""},
    {L" -processor=\"fast\"", 0, workerNormal, L"", L"", L"-processor=\"fast\""},
    // A chain that was written by hand.
    {L" --dspeffect2 \"B=\" -DSPEffect1=A=1 rest", 0, workerNormal, L"",
     L"--dspeffect2 \"B=\" -DSPEffect1=A=1", L"rest"},
    {L" -dspeffectx=\"A\"", 0, workerNormal, L"", L"", L"-dspeffectx=\"A\""},
    {L" -dspeffect", 0, workerNormal, L"", L"", L"-dspeffect"},
    {L" -dspeffect1=\"open", 0, workerNormal, L"", L"", L"-dspeffect1=\"open"},
    {L" -", 0, workerNormal, L"", L"", L"-"},
};

TEST(CommandText, TakesSwitchesChainAndSettings) {
    for (const TailRow& row : tailRows) {
        clWorkerCommand command;
        XString error;
        ASSERT_TRUE(ParseWorkerCommand(head + row.tail, command, error)) << row.tail;
        EXPECT_EQ(command.inFile, L"C:\\in put.wav");
        EXPECT_EQ(command.outFile, L"C:\\\u00fc\\o.mp3");
        EXPECT_EQ(command.encoder, L"mp3 (Lame)");
        EXPECT_EQ(command.quitEvent, L"q1");
        EXPECT_EQ(command.watchdogEvent, L"w1");
        EXPECT_EQ(command.batchId, 4294967295u);
        EXPECT_EQ(command.processor, row.processor) << row.tail;
        EXPECT_EQ(command.priority, row.priority) << row.tail;
        EXPECT_EQ(command.tempFolder, row.tempFolder) << row.tail;
        EXPECT_EQ(command.chain, row.chain) << row.tail;
        EXPECT_EQ(command.settings, row.settings) << row.tail;
    }
}

struct MalformedRow {
    const wchar_t* text;
    const wchar_t* named; // in the error
};
constexpr MalformedRow malformedRows[] = {
    {L"", L"-infile"},
    {L" ", L"-infile"},
    {L"garbage \" = - --", L"-infile"},
    {L" -infile=\"\" -outfile=\"b\"", L"-infile"},
    {L" -infile=\"a\" -outfile=\"b", L"-outfile"},
    {L" -infile=a -outfile=\"b\"", L"-infile"},
    {L" -infile=\"a\" -outfile=\"b\" -convert_to=\"c\" -evtquit=\"d\" -evtwatchdog=\"e\"", L"-batchid"},
    {L" -infile=\"a\" -outfile=\"b\" -convert_to=\"c\" -evtquit=\"d\" -evtwatchdog=\"e\" "
     L"-batchid=\"4294967296\"",
     L"-batchid"},
    {L" -infile=\"a\" -outfile=\"b\" -convert_to=\"c\" -evtquit=\"d\" -evtwatchdog=\"e\" -batchid=\"1\"x",
     L"blank"},
};

TEST(CommandText, NamesWhatIsMalformed) {
    for (const MalformedRow& row : malformedRows) {
        clWorkerCommand command;
        XString error;
        EXPECT_FALSE(ParseWorkerCommand(row.text, command, error)) << row.text;
        EXPECT_NE(error.Find(row.named), 0) << error.Text();
    }
}

TEST(CommandText, BytesBecomeTextOrAreRefused) {
    XString text;
    const unsigned char marked[] = {0xff, 0xfe, 'a', 0, 0xe9, 0};
    ASSERT_TRUE(CommandTextFromBytes(marked, sizeof(marked), text));
    EXPECT_EQ(text, L"a\u00e9");
    ASSERT_TRUE(CommandTextFromBytes(marked + 2, 2, text));
    EXPECT_EQ(text, L"a");
    EXPECT_TRUE(CommandTextFromBytes(nullptr, 0, text));
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_FALSE(CommandTextFromBytes(marked, 5, text));
    const unsigned char withZero[] = {'a', 0, 0, 0, 'b', 0};
    EXPECT_FALSE(CommandTextFromBytes(withZero, sizeof(withZero), text));
}

} // namespace
