// The real worker converts, or says why not and leaves what was there.
#include "WorkerProcess.h"

#include "fakes/worker_numbers.h"
#include "foundation/XFileSystem.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

constexpr const char* tone = "frames=50000";

// Sample n of channel 0 in what the fake encoder wrote.
std::int32_t SampleOf(const std::string& content, std::size_t n) {
    std::int32_t sample = -1;
    const std::size_t at = sizeof(FakeHead) + 8 * n;
    if (at + 4 <= content.size())
        std::memcpy(&sample, content.data() + at, 4);
    return sample;
}

std::size_t FramesOf(const std::string& content) {
    return content.size() < sizeof(FakeHead) ? 0 : (content.size() - sizeof(FakeHead)) / 8;
}

TEST(Worker, ConvertsAndTellsInLines) {
    WorkerProcess worker;
    const XString source = worker.Write(L"\u00e4 \u4e2d.tone", tone);
    const XString target = worker.File(L"new\\deep er\\\u00fc.fake");
    worker.Start(source, target, L"channels=2 tags=2"); // what the encoder says of the file, and is so
    ASSERT_EQ(worker.Wait(), 0) << worker.ErrorText().Text();
    EXPECT_TRUE(worker.errors.IsEmpty()) << worker.ErrorText().Text();
    const std::string content = FileContent(target);
    ASSERT_EQ(FramesOf(content), 50000u);
    for (const std::size_t n : {0u, 8191u, 8192u, 49999u})
        EXPECT_EQ(SampleOf(content, n), static_cast<std::int32_t>(n));
    EXPECT_EQ(worker.EntryCount(), 2); // the source and the folder: no temporary file
    EXPECT_TRUE(worker.TakeSign());
    EXPECT_TRUE(worker.Said(L"MSGTO: zTM: Action: Converting"));
    EXPECT_TRUE(worker.Said(L"MSGTO: zTM: ActionInput: Input: TONE 44.1 kHz stereo"));
    EXPECT_TRUE(worker.Said(L"MSGTO: zTM: ActionOutput: Output: Fake 44.1 kHz stereo"));
    std::int64_t last = -1;
    for (const XString& line : worker.lines) {
        EXPECT_TRUE(line.StartsWith(L"MSGTO: zTM: ")) << line.Text();
        if (!line.StartsWith(L"MSGTO: zTM: PCDone: "))
            continue;
        EXPECT_GT(line.From(21).ToInt(), last);
        last = line.From(21).ToInt();
    }
    EXPECT_EQ(last, 100);
}

struct FailureRow {
    const char* source; // null: there is none
    const wchar_t* sourceName;
    const wchar_t* settings;
    const wchar_t* extra;
    const wchar_t* error; // part of it
};
constexpr FailureRow failureRows[] = {
    {nullptr, L"a.tone", L"", L"", L"a.tone': File not found"},
    {"x", L"a.nobody", L"", L"", L"a.nobody': no decoder takes files of the type '.nobody'"},
    {"", L"a.tone", L"", L"", L"not supported (the fake decoder's own words)"},
    {"frames=50000 failat=20000", L"a.tone", L"", L"", L"damaged after 0:00.372 (the fake"},
    {"frames=20000 announced=50000", L"a.tone", L"", L"", L"truncated: only 0:00.454 of 0:01.134"},
    {"frames=0 announced=50000 exact=0", L"a.tone", L"", L"", L"no audio"},
    {tone, L"a.tone", L"failat=20000", L"", L"old.fake': the encoder failed (the fake encoder's own words)"},
    {tone, L"a.tone", L"crashat=20000", L"", L"a.tone': a codec or effect crashed"},
    {tone, L"a.tone", L"abortat=20000", L"", L"crashed"},
    {tone, L"a.tone", L"exitat=20000", L"", L"crashed"},
    {tone, L"a.tone", L"lose=1", L"", L"instead of 0:01.134"},
    {tone, L"a.tone", L"channels=1", L"", L"is 44.1 kHz stereo instead of 44.1 kHz mono"},
    {tone, L"a.tone", L"tags=3", L"", L"holds 2 instead of 3 values of the tag 'title'"},
    {tone, L"a.tone", L"wrong=1", L"", L"wrong is not good"},
    {tone, L"a.tone", L"", L" -dspeffect1=\"Nowhere=\"", L"the effect 'Nowhere' is not installed"},
    {tone, L"a.tone", L"", L" -dspeffect1=\"Fake=fail=1\"",
     L"'Fake' can't begin (the fake effect's own words)"},
    {tone, L"a.tone", L"", L" -dspeffect1=\"Fake=drop=1\"", L"a.tone': the effects leave no audio"},
};

TEST(Worker, AFailureIsToldAndLeavesTheTargetAsItWas) {
    for (const FailureRow& row : failureRows) {
        WorkerProcess worker;
        const XString source =
            row.source ? worker.Write(row.sourceName, row.source) : worker.File(row.sourceName);
        const XString target = worker.Write(L"old.fake", "old");
        const int entries = worker.EntryCount();
        worker.Start(source, target, row.settings, row.extra);
        const int code = worker.Wait();
        EXPECT_GT(code, 0) << row.error;
        EXPECT_EQ(worker.errors.Count(), 1) << worker.ErrorText().Text();
        EXPECT_NE(worker.ErrorText().Find(row.error), 0) << row.error << " in " << worker.ErrorText().Text();
        EXPECT_FALSE(worker.Said(L"PCDone: 100"));
        EXPECT_EQ(FileContent(target), "old");
        EXPECT_EQ(worker.EntryCount(), entries) << row.error;
    }
}

TEST(Worker, AFailureTakesBackTheFoldersThatItMade) {
    WorkerProcess worker;
    worker.Start(worker.Write(L"a.tone", tone), worker.File(L"new\\deep\\a.fake"), L"crashat=9000");
    EXPECT_GT(worker.Wait(), 0);
    EXPECT_EQ(worker.EntryCount(), 1);
}

TEST(Worker, OutputsThatCannotBeAreTold) {
    for (const wchar_t* name : {L"a?.fake", L"a.tone\\b.fake", L"folder"}) {
        WorkerProcess worker;
        EXPECT_TRUE(MakeFolders(worker.File(L"folder")));
        worker.Start(worker.Write(L"a.tone", tone), worker.File(name));
        EXPECT_EQ(worker.Wait(), 1) << name;
        EXPECT_NE(worker.ErrorText().Find(L"Error writing '"), 0);
        EXPECT_EQ(worker.EntryCount(), 2);
    }
}

struct EffectRow {
    const wchar_t* chain;
    std::int32_t atZero; // expected sample of frame 0
    std::int32_t at40000;
};
constexpr EffectRow effectRows[] = {
    {L" -dspeffect1=\"Fake=skip=1\"", 0, 40000},
    {L" -dspeffect1=\"Multi-CPU Force=-cpu1\" -dspeffect2=\"Fake=gain=3\"", 0, 120000},
    {L" -dspeffect1=\"Fake=hold=1\" -dspeffect2=\"Fake=gain=2\"", 0, 80000},
    {L" -dspeffect1=\"Fake=top=1\"", -49999, -9999},
    // The first pass of the second hears what the first delivers, held frames included.
    {L" -dspeffect1=\"Fake=gain=2 hold=1\" -dspeffect2=\"Fake=top=1\"", -99998, -19998},
    // Both learn; the first one again after it ran for the second.
    {L" -dspeffect1=\"Fake=top=1\" -dspeffect2=\"Fake=gain=2\" -dspeffect3=\"Fake=top=1\"", -99998, -19998},
};

TEST(Worker, AudioPassesThroughTheEffectsInOrder) {
    for (const EffectRow& row : effectRows) {
        WorkerProcess worker;
        const XString target = worker.File(L"a.fake");
        worker.Start(worker.Write(L"a.tone", tone), target, L"", row.chain);
        ASSERT_EQ(worker.Wait(), 0) << worker.ErrorText().Text();
        const std::string content = FileContent(target);
        EXPECT_EQ(FramesOf(content), 50000u) << row.chain;
        EXPECT_EQ(SampleOf(content, 0), row.atZero) << row.chain;
        EXPECT_EQ(SampleOf(content, 40000), row.at40000) << row.chain;
    }
}

// An effect behind it that learns as well makes it begin anew; it tells once, when all have learned.
TEST(Worker, AnEffectTellsWhatItLearned) {
    WorkerProcess worker;
    const XString target = worker.File(L"a.fake");
    worker.Start(worker.Write(L"a.tone", tone), target, L"",
                 L" -dspeffect1=\"Fake=top=1 tell=1\" -dspeffect2=\"Fake=top=1\"");
    ASSERT_EQ(worker.Wait(), 0) << worker.ErrorText().Text();
    const std::string content = FileContent(target);
    ASSERT_EQ(FramesOf(content), 50000u);
    EXPECT_TRUE(worker.Said(L"Fake: this was learned"));
    const std::vector<unsigned char> expected = OneTag(4); // 49999 is the highest sample
    EXPECT_EQ(std::memcmp(content.data() + offsetof(FakeHead, tags), expected.data(), expected.size()), 0);
}

TEST(Worker, SourceAndReadOnlyTargetMayBeOneFile) {
    WorkerProcess worker;
    const XString path = worker.File(L"a.fake");
    worker.Start(worker.Write(L"a.tone", tone), path);
    ASSERT_EQ(worker.Wait(), 0) << worker.ErrorText().Text();
    SetFileAttributesW(path, FILE_ATTRIBUTE_READONLY);
    worker.Start(path, path, L"", L" -dspeffect1=\"Fake=gain=2\"");
    ASSERT_EQ(worker.Wait(), 0) << worker.ErrorText().Text();
    EXPECT_EQ(SampleOf(FileContent(path), 700), 1400);
    EXPECT_EQ(worker.EntryCount(), 2);
}

TEST(Worker, AnInexactAnnouncementIsNoFailure) {
    WorkerProcess worker;
    worker.Start(worker.Write(L"a.tone", "frames=50000 announced=200000 exact=0"), worker.File(L"a.fake"));
    EXPECT_EQ(worker.Wait(), 0) << worker.ErrorText().Text();
    EXPECT_TRUE(worker.Said(L"seemed to be 0:04.535 long and is 0:01.134"));
}

TEST(Worker, AnEncoderWithoutFilesLeavesNoneAndIsHeard) {
    WorkerProcess worker;
    const XString source = worker.Write(L"a.tone", tone);
    worker.Start(source, worker.File(L"new\\a.ignore"), L"nofile=1");
    EXPECT_EQ(worker.Wait(), 0) << worker.ErrorText().Text();
    EXPECT_EQ(worker.EntryCount(), 1);
    EXPECT_TRUE(worker.Said(L"heard 50000 frames"));
    EXPECT_TRUE(worker.Said(L"and no more"));
    worker.Start(source, worker.File(L"a.ignore"), L"nofile=1 failat=20000");
    EXPECT_EQ(worker.Wait(), 1);
    EXPECT_FALSE(worker.Said(L"heard"));
}

TEST(Worker, MalformedCommandFiles) {
    for (const wchar_t* text : {L"", L"garbage", L" -infile=\"a\" -outfile=\"b\"",
                                L" -infile=\"a\" -outfile=\"b\" -convert_to=\"Fake\" -evtquit=\"tm-no-event\""
                                L" -evtwatchdog=\"tm-no-event\" -batchid=\"1\" "}) {
        WorkerProcess worker;
        worker.StartWithText(text);
        EXPECT_EQ(worker.Wait(), 4) << text;
        EXPECT_EQ(worker.errors.Count(), 1);
        EXPECT_TRUE(worker.lines.IsEmpty());
    }
}

} // namespace
