// What workers are told and what is made of what they say.
#include "engine/WorkerText.h"

#include <gtest/gtest.h>

namespace {

void FillPaths(clJobSlot& slot) {
    slot.codecName = L"MP3";
    slot.source = L"C:\\\x00fc\\a.flac";
    slot.output = L"D:\\a.mp3";
}

TEST(WorkerText, CommandFileHoldsWhatApplies) {
    struct Row {
        std::uint32_t processor, priority;
        const wchar_t *tempFolder, *chain, *settings, *tail;
    };
    const Row rows[] = {
        {0, priorityNormal, L"", L"", L"", L" "},
        {3, priorityNormal, L"", L"", L"-b=5", L" -processor=\"3\" -b=5"},
        {0, priorityAboveNormal, L"E:\\t", L"", L"", L" -tmpfolder=\"E:\\t\" -priority=\"high\" "},
        {0, priorityBelowNormal, L"", L"-dspeffect1=\"A={qt}\"", L"-x",
         L" -priority=\"low\" -dspeffect1=\"A={qt}\" -x"},
        {1, priorityIdle, L"", L"", L"", L" -processor=\"1\" -priority=\"idle\" "},
    };
    for (const Row& row : rows) {
        clJobSlot slot;
        FillPaths(slot);
        slot.processorNumber = row.processor;
        slot.priority = row.priority;
        slot.chainText = row.chain;
        slot.encoderSettings = row.settings;
        const clWorkerJob job{L"q1", L"w1", 4000000000u, row.tempFolder};
        EXPECT_EQ(CommandFileText(slot, job),
                  XString(L" -infile=\"C:\\\x00fc\\a.flac\" -outfile=\"D:\\a.mp3\" -convert_to=\"MP3\""
                          L" -evtquit=\"q1\" -evtwatchdog=\"w1\" -batchid=\"4000000000\"") +
                      row.tail);
    }
    EXPECT_EQ(WorkerCommandLine(L"C:\\P F\\W.exe", L"C:\\t\\x.tmp"),
              XString(L"\"C:\\P F\\W.exe\" -ztcmd=\"C:\\t\\x.tmp\""));
}

TEST(WorkerText, SplitsAtTheFirstColon) {
    struct Row {
        const wchar_t* line;
        bool found;
        const wchar_t *left, *right;
    };
    const Row rows[] = {
        {L"", false, L"", L""},        {L"none", false, L"", L""}, {L"a: b: c", true, L"a", L"b: c"},
        {L"a:  b", true, L"a", L" b"}, {L":x", true, L"", L"x"},   {L"a:", true, L"a", L""},
    };
    for (const Row& row : rows) {
        XString left(L"old"), right(L"old");
        EXPECT_EQ(SplitAtFirstColon(row.line, left, right), row.found) << row.line;
        EXPECT_EQ(left, XString(row.left));
        EXPECT_EQ(right, XString(row.right));
    }
}

TEST(WorkerText, ReadsMessages) {
    struct Row {
        const wchar_t* line;
        bool isMessage;
        std::int32_t percent; // 50 before
        const wchar_t *action, *input, *output, *name;
    };
    const Row rows[] = {
        {L"plain: text", false, 50, L"", L"", L"", nullptr},
        {L"MSGTO: zTM: PCDone: 60", true, 60, L"", L"", L"", nullptr},
        {L"MSGTO:zTM:PCDone:60", false, 50, L"", L"", L"", nullptr}, // the mark has a blank
        {L"MSGTO: zTM:PCDone:60", true, 60, L"", L"", L"", nullptr},
        {L"MSGTO: zTM: PCDone: 40", true, 50, L"", L"", L"", nullptr},
        {L"MSGTO: zTM: PCDone:  250 %", true, 250, L"", L"", L"", nullptr},
        {L"MSGTO: zTM: PCDone: 99999999999", true, 0x7fffffff, L"", L"", L"", nullptr},
        {L"MSGTO: zTM: PCDone: none", true, 50, L"", L"", L"", nullptr},
        {L"MSGTO: ztm: PCDone: 60", true, 50, L"", L"", L"", nullptr},
        {L"MSGTO: other: Action: x", true, 50, L"", L"", L"", nullptr},
        {L"note: MSGTO: zTM: PCDone: 60", true, 50, L"", L"", L"", nullptr},
        {L"MSGTO: zTM: Action", true, 50, L"", L"", L"", nullptr},
        {L"MSGTO: zTM: Action: A: b", true, 50, L"A: b", L"", L"", nullptr},
        {L"MSGTO: zTM: ActionInput: in", true, 50, L"", L"in", L"", nullptr},
        {L"MSGTO: zTM: ActionOutput: out", true, 50, L"", L"", L"out", nullptr},
        {L"MSGTO: zTM: FileName: C:\\x\\1.mp3", true, 50, L"", L"", L"", L"C:\\x\\1.mp3"},
        {L"MSGTO: zTM: action: x", true, 50, L"", L"", L"", nullptr},
    };
    for (const Row& row : rows) {
        clJobSlot slot;
        slot.percent = 50;
        EXPECT_EQ(ParseWorkerLine(slot, row.line), row.isMessage) << row.line;
        EXPECT_EQ(slot.percent, row.percent) << row.line;
        EXPECT_EQ(slot.action, XString(row.action));
        EXPECT_EQ(slot.actionInput, XString(row.input));
        EXPECT_EQ(slot.actionOutput, XString(row.output));
        ASSERT_EQ(slot.reportedNames.Count(), row.name ? 1 : 0);
        if (row.name) {
            EXPECT_EQ(slot.reportedNames[0], XString(row.name));
        }
    }
}

TEST(WorkerText, SplitsWhatAPipeHeld) {
    struct Row {
        const wchar_t* held;
        std::uint64_t bytes;
        int count;
        const wchar_t *first, *last;
    };
    const Row rows[] = {
        {L"", 0, 0, L"", L""},
        {L"\r\n\r\n", 8, 0, L"", L""},
        {L"a\r\nb\r\n", 12, 2, L"a", L"b"},
        {L"a\r\nhal", 12, 2, L"a", L"hal"},
        {L"a\nb\rc\r\n", 14, 1, L"a\nb\rc", L"a\nb\rc"},
        {L"ab", 3, 1, L"ab", L"ab"}, // the odd byte is the low half of a unit
    };
    for (const Row& row : rows) {
        XStringArray lines;
        lines.AddString(L"old");
        SplitWorkerBytes(row.held, row.bytes, lines);
        ASSERT_EQ(lines.Count(), row.count) << row.bytes;
        if (row.count > 0) {
            EXPECT_EQ(lines[0], XString(row.first));
            EXPECT_EQ(lines[lines.Count() - 1], XString(row.last));
        }
    }
    XString text;
    AddLine(text, L"one");
    AddLine(text, L"two");
    EXPECT_EQ(text, XString(L"one\r\ntwo"));
}

TEST(WorkerText, RotatesBetweenTheTextsThatThereAre) {
    struct Row {
        const wchar_t *action, *input, *output;
        const wchar_t* shown[4]; // after 15, 16, 32 and 48 steps
    };
    const Row rows[] = {
        {L"A", L"", L"", {L"A", L"A", L"A", L"A"}},  {L"A", L"I", L"", {L"A", L"I", L"A", L"I"}},
        {L"A", L"", L"O", {L"A", L"O", L"A", L"O"}}, {L"A", L"I", L"O", {L"A", L"I", L"O", L"A"}},
        {L"", L"I", L"O", {L"", L"", L"", L""}},
    };
    for (const Row& row : rows) {
        clJobSlot slot;
        slot.action = row.action;
        slot.actionInput = row.input;
        slot.actionOutput = row.output;
        for (std::uint32_t step = 1; step <= 48; ++step) {
            RotateRowText(slot, step * 50);
            if (step == 15 || step % 16 == 0) {
                EXPECT_EQ(slot.shownText, XString(row.shown[step == 15 ? 0 : step / 16])) << step;
            }
        }
    }
}

TEST(WorkerText, HoldsABlankBackForTwoSeconds) {
    const std::uint32_t base = 0xffffff00u; // across the wrap of the ticks
    clJobSlot slot;
    slot.action = L"A";
    EXPECT_TRUE(RotateRowText(slot, base));
    slot.action.Clear();
    EXPECT_FALSE(RotateRowText(slot, base + 50));
    EXPECT_FALSE(RotateRowText(slot, base + 2049));
    EXPECT_EQ(slot.shownText, XString(L"A"));
    slot.action = L"B"; // comes first: the wait begins anew
    EXPECT_TRUE(RotateRowText(slot, base + 2049));
    slot.action.Clear();
    EXPECT_FALSE(RotateRowText(slot, base + 2060));
    EXPECT_FALSE(RotateRowText(slot, base + 4059));
    EXPECT_TRUE(RotateRowText(slot, base + 4060));
    EXPECT_TRUE(slot.shownText.IsEmpty());
}

TEST(WorkerText, PercentOfARow) {
    clJobSlot slot;
    EXPECT_EQ(PercentToShow(slot), 0);
    PrepareSlotForFile(slot, L"a", L"b", 700);
    slot.running = true;
    slot.percent = 30;
    EXPECT_EQ(PercentToShow(slot), 30);
    FreeSlot(slot);
    EXPECT_EQ(PercentToShow(slot), 100);
    EXPECT_EQ(slot.finishedUnits, 700);
}

} // namespace
