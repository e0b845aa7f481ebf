// The effect "Playlist Writer" through its exports, with real files.
#include "EffectDriver.h"

namespace {

class PlaylistWriter : public EffectDriver {
protected:
    PlaylistWriter() : EffectDriver(L"Playlist Writer") {}
    void SetUp() override {
        EffectDriver::SetUp();
        AddRow(L"C:\\source 1", Put(L"1.wav", "x", 1));
        AddRow(L"C:\\source 2", folder + L"gone.wav");
        AddRow(L"C:\\source 3", Put(L"\u00fc.wav", "x", 1));
    }
    void PutPlaylist(const std::string& text) {
        Put(L"Playlist.m3u8", text.data(), static_cast<DWORD>(text.size()));
    }
};

constexpr char written[] = "#EXTM3U\r\n1.wav\r\n\xC3\xBC.wav\r\n";

TEST_F(PlaylistWriter, WritesWhatStandsThereAndReplacesPlaylistsOnly) {
    EXPECT_TRUE(EndBatch(L""));
    EXPECT_EQ(Content(L"Playlist.m3u8"), written);

    EXPECT_TRUE(EndBatch(L"-file=\"sub\\new\""));
    EXPECT_EQ(Content(L"sub\\new.m3u8"), "#EXTM3U\r\n..\\1.wav\r\n..\\\xC3\xBC.wav\r\n");

    PutPlaylist("#EXTM3U\nolder and longer than the new one by far, by far, by far");
    EXPECT_TRUE(EndBatch(L""));
    EXPECT_EQ(Content(L"Playlist.m3u8"), written);

    PutPlaylist("somebody's own");
    EXPECT_FALSE(EndBatch(L""));
    EXPECT_GT(LastError().Find(L"Playlist.m3u8"), 0);
    EXPECT_EQ(Content(L"Playlist.m3u8"), "somebody's own");
}

TEST_F(PlaylistWriter, FailsWithoutATrace) {
    EXPECT_TRUE(TellBatch(L"BatchEndConversion", XTagList(), L"")) << "nothing to list";
    EXPECT_FALSE(EndBatch(L"-file=\"nul.m3u8\""));
    EXPECT_FALSE(EndBatch(L"-file=\"1.wav\\list\"")) << "a file where a folder should be";
    // Replaced by renaming: what another program holds open stays as it is, and nothing else remains.
    PutPlaylist("#EXTM3U\r\nheld");
    {
        XFile held(folder + L"Playlist.m3u8");
        ASSERT_TRUE(held.Open(GENERIC_READ, OPEN_EXISTING));
        EXPECT_FALSE(EndBatch(L""));
    }
    EXPECT_EQ(Content(L"Playlist.m3u8"), "#EXTM3U\r\nheld");
    EXPECT_FALSE(PathExists(folder + L"Playlist.m3u8.1.tmp"));
}

} // namespace
