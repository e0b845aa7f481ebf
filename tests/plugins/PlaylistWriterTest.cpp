// The effect "Playlist Writer" through its exports, with real files.
#include "EffectDriver.h"

#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"

#include <string>

namespace {

class PlaylistWriter : public EffectDriver {
protected:
    PlaylistWriter() : EffectDriver(L"Playlist Writer") {}
    void SetUp() override {
        EffectDriver::SetUp();
        folder = TempFolder() + L"playlist " + DecimalText(GetCurrentProcessId()) + L"\\";
        ASSERT_TRUE(MakeFolders(folder));
        for (const wchar_t* name : {L"1.wav", L"\u00fc.wav"})
            Put(name, "x");
        AddRow(L"1", L"1.wav");
        AddRow(L"2", L"gone.wav");
        AddRow(L"3", L"\u00fc.wav");
    }
    void TearDown() override {
        DeleteTree(folder);
        EffectDriver::TearDown();
    }
    void AddRow(const wchar_t* number, const wchar_t* name) {
        results.Add(XString(L"file") + number + L"_in", XString(L"C:\\source ") + number);
        results.Add(XString(L"file") + number + L"_out", folder + name);
    }
    void Put(const wchar_t* name, const std::string& bytes) {
        XFile file(folder + name);
        ASSERT_TRUE(file.Open(GENERIC_WRITE, CREATE_ALWAYS));
        ASSERT_TRUE(file.Write(bytes.data(), static_cast<DWORD>(bytes.size())));
    }
    std::string Read(const wchar_t* name) {
        XBuffer bytes;
        return ReadWholeFile(folder + name, bytes) ? std::string(bytes.Bytes(), bytes.Bytes() + bytes.size)
                                                   : "no file";
    }

    XString folder;
    XTagList results;
};

constexpr char written[] = "#EXTM3U\r\n1.wav\r\n\xC3\xBC.wav\r\n";

TEST_F(PlaylistWriter, WritesWhatStandsThereAndReplacesPlaylistsOnly) {
    EXPECT_EQ(Begin(), 0) << "wants no audio";
    EXPECT_TRUE(EndBatch(results, L""));
    EXPECT_EQ(Read(L"Playlist.m3u8"), written);

    EXPECT_TRUE(EndBatch(results, L"-file=\"sub\\new\""));
    EXPECT_EQ(Read(L"sub\\new.m3u8"), "#EXTM3U\r\n..\\1.wav\r\n..\\\xC3\xBC.wav\r\n");

    Put(L"Playlist.m3u8", "#EXTM3U\nolder and longer than the new one by far, by far, by far");
    EXPECT_TRUE(EndBatch(results, L""));
    EXPECT_EQ(Read(L"Playlist.m3u8"), written);

    Put(L"Playlist.m3u8", "somebody's own");
    EXPECT_FALSE(EndBatch(results, L""));
    EXPECT_GT(LastError().Find(L"Playlist.m3u8"), 0);
    EXPECT_EQ(Read(L"Playlist.m3u8"), "somebody's own");
}

TEST_F(PlaylistWriter, FailsWithoutATrace) {
    EXPECT_TRUE(EndBatch(XTagList(), L"")) << "nothing to list";
    EXPECT_FALSE(EndBatch(results, L"-file=\"nul.m3u8\""));
    EXPECT_FALSE(EndBatch(results, L"-file=\"1.wav\\list\"")) << "a file where a folder should be";
    // Replaced by renaming: what another program holds open stays as it is, and nothing else remains.
    Put(L"Playlist.m3u8", "#EXTM3U\r\nheld");
    {
        XFile held(folder + L"Playlist.m3u8");
        ASSERT_TRUE(held.Open(GENERIC_READ, OPEN_EXISTING));
        EXPECT_FALSE(EndBatch(results, L""));
    }
    EXPECT_EQ(Read(L"Playlist.m3u8"), "#EXTM3U\r\nheld");
    EXPECT_FALSE(PathExists(folder + L"Playlist.m3u8.1.tmp"));
}

} // namespace
