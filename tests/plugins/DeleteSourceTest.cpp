// The effect "Delete Source File" through its exports, with real files and the system's recycle bin.
#include "EffectDriver.h"

namespace {

// Where Wine's recycle bin has a deleted file.
XString InRecycleBin(const wchar_t* name) {
    wchar_t home[MAX_PATH] = L"";
    GetEnvironmentVariableW(L"WINEHOMEDIR", home, MAX_PATH); // behind four characters
    return XString(home).From(5) + L"\\.local\\share\\Trash\\files\\" + name;
}

class DeleteSource : public EffectDriver {
protected:
    DeleteSource() : EffectDriver(L"Delete Source File") {}
    // A wave file of so many frames, of which some are missing; or, with frames 0, rubbish.
    XString Put(const wchar_t* name, std::size_t frames, std::size_t missing = 0) {
        EncoderDriver wave(L"Wave");
        const AudioFormatRecord format = PcmRecord(2, 16, 8000);
        if (frames > 0)
            EXPECT_TRUE(wave.Convert(format, TestSignal(format, frames)));
        else
            wave.bytes.assign(5000, 'x');
        return EffectDriver::Put(name, wave.bytes.data(),
                                 static_cast<DWORD>(wave.bytes.size() - missing * 4));
    }
};

TEST_F(DeleteSource, DeletesOnlyWhatStandsWholeElsewhere) {
    struct Row {
        const wchar_t* name;
        std::size_t outputFrames, missing;
        bool goes;
    };
    constexpr Row fileRows[] = {
        {L"\u00fc good", 20000, 0, true},
        {L"short", 19999, 0, false},
        {L"cut off", 20000, 300, false},
        {L"rubbish", 0, 0, false},
    };
    for (const Row& row : fileRows)
        AddRow(Put(XString(row.name) + L".wav", 20000),
               Put(XString(row.name) + L" out.wav", row.outputFrames, row.missing));
    AddRow(Put(L"no output.wav", 20000), folder + L"nowhere.wav");
    AddRow(Put(L"two outputs.wav", 20000), Put(L"first.wav", 20000));
    AddRow(folder + L"TWO outputs.wav", folder + L"second.wav");
    const XString guarded = Put(L"read-only.wav", 20000);
    AddRow(guarded, Put(L"read-only out.wav", 20000));
    SetFileAttributesW(guarded, FILE_ATTRIBUTE_READONLY);
    // A link makes one file out of two paths.
    ASSERT_TRUE(CreateHardLinkW(folder + L"link.wav", Put(L"linked.wav", 20000), nullptr));
    AddRow(folder + L"linked.wav", folder + L"link.wav");

    EXPECT_FALSE(EndBatch(L""));
    for (const Row& row : fileRows) {
        EXPECT_EQ(!PathExists(folder + row.name + L".wav"), row.goes) << row.name;
        EXPECT_EQ(LastError().Find(XString(row.name) + L".wav' stays") == 0, row.goes);
        EXPECT_TRUE(PathExists(folder + row.name + L" out.wav"));
    }
    for (const wchar_t* name : {L"no output.wav", L"two outputs.wav", L"read-only.wav", L"linked.wav"})
        EXPECT_TRUE(PathExists(folder + name)) << name;
    ClearReadOnly(guarded);
}

TEST_F(DeleteSource, OtherLengthsOnlyWhenTold) {
    const XString name = L"deleted " + DecimalText(GetCurrentProcessId()) + L".wav";
    const XString source = Put(name, 20000);
    AddRow(source, Put(L"b.wav", 500));
    EXPECT_FALSE(EndBatch(L"-otherlength=\"yes\"")) << "no such value";
    EXPECT_FALSE(EndBatch(L""));
    EXPECT_TRUE(PathExists(source));
    EXPECT_TRUE(EndBatch(L"-otherlength")) << LastError().Text();
    EXPECT_FALSE(PathExists(source));
    EXPECT_TRUE(DeleteOneFile(InRecycleBin(name)));
}

} // namespace
