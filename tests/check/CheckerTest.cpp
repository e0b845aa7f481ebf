// The checker against a plug-in that has one fault at a time: it names each. That it finds none in good ones,
// plugins.sh and templates.sh see.
#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "foundation/XHandles.h"
#include "foundation/XPath.h"
#include "tests/support/PcmRecord.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

// The tests run from <build>/tests/check.
XString BuildFolder() {
    return FolderOf(StripBackslash(FolderOf(StripBackslash(ProgramFolder()))));
}
XString Fake(const wchar_t* name) {
    return ProgramFolder() + name;
}

void WriteBytes(const XString& path, const void* bytes, std::size_t count) {
    XFile file(path);
    ASSERT_TRUE(file.Open(GENERIC_WRITE, CREATE_ALWAYS));
    ASSERT_TRUE(file.Write(bytes, static_cast<DWORD>(count)));
}

// A stereo file for the template decoder.
XString Sample() {
    const XString path = ProgramFolder() + L"sample.pcmz";
    AudioFormatRecord format = PcmRecord(2, 16, 8000);
    format.frameCount = 20000;
    std::vector<char> bytes(4 + sizeof(format) + 20000 * 8);
    std::memcpy(bytes.data(), "pcmz", 4);
    std::memcpy(bytes.data() + 4, &format, sizeof(format));
    for (int i = 0; i < 40000; ++i) {
        const std::int32_t sample = i * 7919 % 60000 - 30000;
        std::memcpy(bytes.data() + 4 + sizeof(format) + 4 * i, &sample, 4);
    }
    WriteBytes(path, bytes.data(), bytes.size());
    return path;
}

struct Outcome {
    int exitCode = -1;
    std::string text;
    [[nodiscard]] std::string BrokenLines() const {
        std::string lines;
        for (std::size_t at = 0, end = 0; (end = text.find('\n', at)) != std::string::npos; at = end + 1)
            if (text.compare(at, 6, "BROKEN") == 0)
                lines += text.substr(at, end + 1 - at);
        return lines;
    }
};

Outcome Check(const XString& arguments, const wchar_t* fault = nullptr) {
    Outcome run;
    SetEnvironmentVariableW(L"TM_FAULT", fault);
    SECURITY_ATTRIBUTES security{sizeof(security), nullptr, TRUE};
    const XString log = ProgramFolder() + L"check.log";
    STARTUPINFOW start{};
    start.cb = sizeof(start);
    start.dwFlags = STARTF_USESTDHANDLES;
    XFileHandle out(CreateFileW(log, GENERIC_WRITE, FILE_SHARE_READ, &security, CREATE_ALWAYS, 0, nullptr));
    start.hStdOutput = start.hStdError = out.Get();
    XString line = Quote(BuildFolder() + L"Tonemill\\sdk\\ZtCheck.exe") + L" " + arguments;
    PROCESS_INFORMATION process{};
    EXPECT_TRUE(CreateProcessW(nullptr, line.Buffer(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                               &process));
    WaitForSingleObject(process.hProcess, 100000);
    DWORD code = 99;
    GetExitCodeProcess(process.hProcess, &code);
    TerminateProcess(process.hProcess, 99);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    out.Reset();
    XBuffer bytes;
    EXPECT_TRUE(ReadWholeFile(log, bytes));
    run.text.assign(static_cast<const char*>(bytes.data), bytes.size);
    run.exitCode = static_cast<int>(code);
    return run;
}

struct FaultRow {
    const wchar_t* fault;
    const wchar_t* stage;
    const char* told; // in a BROKEN line
};

void ExpectFound(const wchar_t* library, const FaultRow* rows, std::size_t count, bool withSample) {
    const XString tail = withSample ? XString(L" ") + Quote(Sample()) : XString();
    for (std::size_t i = 0; i < count; ++i) {
        SCOPED_TRACE(rows[i].fault);
        const Outcome run = Check(Quote(Fake(library)) + L" -only=" + rows[i].stage + L" -decoder=" +
                                      Quote(Fake(L"decoder\\Faulty.dll")) + tail,
                                  rows[i].fault);
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_NE(run.BrokenLines().find(rows[i].told), std::string::npos) << run.text;
    }
}

constexpr FaultRow keyRows[] = {
    {L"null instance", L"keys", "ENC_Create returned null"},
    {L"one instance", L"keys", "same instance twice"},
    {L"unknown key", L"keys", "answered yes to a key that does not exist"},
    {L"crash", L"keys", "ENC_Get(\"no such key\"): the plug-in crashed there (exception 0xC0000005)"},
    {L"hang", L"keys", "ENC_Get(\"no such key\") did not return within 10 s"},
    {L"throw", L"keys", "ENC_Get(\"no such key\"): a C++ exception left"},
    {L"exit", L"keys", "ENC_Get(\"no such key\"): the plug-in ended the process"},
    {L"slow", L"answers", "ENC_Get(\"Extension\") took 1"},
    {L"no dot", L"answers", "without a dot in front: outputs would have no extension"},
    {L"freed", L"answers", "did not live until the next call"},
    {L"without end", L"answers", "can't be read to a terminator"},
    {L"null text", L"answers", "left the text null"},
    {L"accepts all", L"answers", "accepts an option that does not exist"},
    {L"refuses defaults", L"answers", "refuses the empty text"},
    {L"estimate falls", L"answers", "for one minute and"},
    {L"required", L"answers", "has to be \"name of the effect=its settings\""},
    {L"multiplier", L"answers", "MultiEncEncodingMultiplier\") returned -1"},
};

constexpr FaultRow panelRows[] = {
    {L"panel elsewhere", L"panel", "put the panel at 0, 0"},
    {L"panel wide", L"panel", "the panel's size is 2000"},
    {L"own window", L"panel", "opened a window of its own"},
    {L"panel goes", L"panel", "took the panel away"},
    {L"panel stays", L"panel", "left a window on the form"},
    {L"panel outlives", L"panel", "ENC_Destroy left the panel's window"},
    {L"settings grow", L"panel", "each opening of the form would change them"},
    {L"line end", L"panel", "holds a line end"},
    {L"refused settings", L"panel", "\"Check Settings\" refuses: that is wrong"},
    {L"shared text", L"panel", "changed the text that another one had returned"},
    {L"gdi leak", L"panel", "GDI objects (fonts, brushes, bitmaps) are left"},
    {L"menu leak", L"panel", "windows, menus or icons are left"},
};

constexpr FaultRow encodingRows[] = {
    {L"no words", L"encoding",
     "24 bit, 2 channels, 96000 Hz is refused, and ENC_Get(\"Last Error\") does not say"},
    {L"loses frames", L"encoding", "13230 frames went in and 13224 of 44100 Hz came out"},
    {L"wrong scale", L"encoding", "channel 1 is 0.5 times as loud"},
    {L"stays open", L"encoding", "ENC_EndConversion(0) left the file open"},
    {L"no file", L"encoding", "there is no file at outputPath"},
    {L"other written", L"encoding",
     "\"Written Format\") says 16 bit, 7 channels, 44100 Hz, and a decoder finds"},
    {L"tags missing", L"encoding", "\"Written Tags\") names the tag k, and a decoder does not find it"},
    {L"shared words", L"encoding", "changed the text that another one had returned"},
};

constexpr FaultRow effectRows[] = {
    {L"batch end", L"answers", "DSP_Get(\"BatchEndConversion\"): the plug-in crashed"},
    {L"bad image", L"audio", "the list that DSP_Get(\"Tags\") delivers is damaged: record 1"},
    {L"bad format", L"audio", "has the bitsPerSample 0"},
    {L"not alike", L"audio", "does not begin twice alike"},
    {L"writes input", L"audio", "DSP_PassAudioBlock writes into its input"},
    {L"block start", L"audio", "in blocks of 7 frames the same file comes out otherwise"},
    {L"beyond bits", L"audio", "the value 2147483647, beyond 16 bits"},
    {L"null output", L"audio", "leaves their address null"},
    {L"pass fails", L"audio", "DSP_PassAudioBlock fails"},
    {L"first pass", L"audio", "DSP_PassNonLive fails at the end of the first pass"},
    {L"endless", L"audio", "has no end"},
};

constexpr FaultRow decoderRows[] = {
    {L"endless formats", L"formats", "never answers 0"},
    {L"no formats", L"formats", "the decoder takes no file"},
    {L"no name", L"formats", "the index 0 has no text2"},
    {L"takes missing", L"refusal", "Open says yes to a file that does not exist"},
    {L"no words", L"refusal", "has no words for a file that does not exist"},
    {L"holds refused", L"refusal", "an empty file is still open"},
    {L"other format", L"samples", "another format with 28 than with 4"},
    {L"wrong count", L"samples", "20000 frames came: Tonemill takes the file for truncated"},
    {L"wrong length", L"samples", "lengthMs is 7500, and frameCount makes 2500 ms"},
    {L"wide samples", L"samples", "beyond 8 bits"},
    {L"stays open", L"samples", "Close leaves the file open"},
    {L"writes behind", L"samples", "wrote behind the end of the block"},
    {L"one thread", L"samples", "on two threads at once disturb each other"},
    {L"small blocks", L"samples", "in blocks of 7 frames it decodes otherwise"},
    {L"more than asked", L"samples", "says that it delivered 4097"},
    {L"end fails", L"samples", "decoding fails after frame 20000"},
    {L"off by one", L"samples", "behind SetPosition(10000) come other samples"},
};

TEST(Checker, FindsFaultsOfKeys) {
    ExpectFound(L"encoder\\Faulty.dll", keyRows, std::size(keyRows), false);
}
TEST(Checker, FindsFaultsOfPanels) {
    ExpectFound(L"encoder\\Faulty.dll", panelRows, std::size(panelRows), false);
}
TEST(Checker, FindsFaultsOfEncoding) {
    ExpectFound(L"encoder\\Faulty.dll", encodingRows, std::size(encodingRows), false);
}
TEST(Checker, FindsFaultsOfEffects) {
    ExpectFound(L"DSPs\\Faulty.dll", effectRows, std::size(effectRows), false);
}
TEST(Checker, FindsFaultsOfDecoders) {
    ExpectFound(L"decoder\\Faulty.dll", decoderRows, std::size(decoderRows), true);
}

TEST(Checker, TellsWhatCanNotBeLoaded) {
    const XString text = ProgramFolder() + L"text.dll", narrow = ProgramFolder() + L"narrow.dll";
    WriteBytes(text, "no library", 10);
    XBuffer bytes;
    ASSERT_TRUE(ReadWholeFile(Fake(L"encoder\\Faulty.dll"), bytes));
    std::uint32_t pe = 0;
    std::memcpy(&pe, bytes.Bytes() + 0x3C, 4);
    bytes.Bytes()[pe + 4] = 0x4C; // the machine: i386
    bytes.Bytes()[pe + 5] = 0x01;
    WriteBytes(narrow, bytes.data, bytes.size);
    struct Row {
        XString path;
        const char* told;
    };
    const Row rows[] = {
        {Fake(L"missing.dll"), "the file can't be read"},
        {text, "this is no library of Windows"},
        {narrow, "this is not a 64-bit library"},
        {ProgramFolder() + L"test_check.exe", "this is a program, not a library"},
        {Fake(L"lost\\lost.dll"), "there is no export of a decoder, an encoder"},
        {Fake(L"Halves.dll"), "the export ENC_Set is missing\n"},
        {Fake(L"Halves.dll"), "it is there as \"_Z7ENC_Get"},
        {Fake(L"Halves.dll"), "it needs lost.dll, which is neither"},
    };
    for (const Row& row : rows) {
        const Outcome run = Check(Quote(row.path));
        EXPECT_EQ(run.exitCode, 2) << run.text;
        EXPECT_NE(run.BrokenLines().find(row.told), std::string::npos) << run.text;
    }
    EXPECT_EQ(Check(L"").exitCode, 2);
    EXPECT_EQ(Check(L"-nonsense " + Quote(Fake(L"encoder\\Faulty.dll"))).exitCode, 2);
}

} // namespace
