#include "plugins/dsp/PlaylistText.h"

#include "ResultList.h"

#include <gtest/gtest.h>

namespace {

struct OutputsCase {
    const wchar_t* rows;
    const wchar_t* expected; // separated by '|'
};

constexpr OutputsCase outputsCases[] = {
    {L"", L""},
    {L"a>1|b>2|c>3", L"1|2|3"},
    {L"a>1|!b>2|c>3|!b>2x", L"1|3"},
    {L"a>1|b>2|b>2b|a>1b|a>1c", L"1|1b|1c|2|2b"}, // names that workers reported stand last in the list
    {L"a>C:\\X.mp3|b>c:\\x.MP3|a>C:\\X.mp3|b>", L"C:\\X.mp3"},
    {L"!a>1|b>1", L"1"}, // of two sources with one output the later one stands
};

TEST(Playlist, ListsEachOutputOnceInTheOrderOfSources) {
    for (const OutputsCase& row : outputsCases) {
        XString joined;
        for (const XString& output : PlaylistOutputs(ResultList(row.rows)))
            joined += (joined.IsEmpty() ? L"" : L"|") + output;
        EXPECT_EQ(joined, XString(row.expected)) << row.rows;
    }
}

struct PlaceCase {
    const wchar_t* outputs;
    const wchar_t* file;
    const wchar_t* path;
    const char* entries; // without the first line, separated by '|'
};

constexpr PlaceCase placeCases[] = {
    {L"C:\\m\\a.mp3", L"", L"C:\\m\\Playlist.m3u8", "a.mp3"},
    {L"C:\\m\\x\\a.mp3|C:\\M\\y\\b.mp3", L"", L"C:\\m\\Playlist.m3u8", "x\\a.mp3|y\\b.mp3"},
    // A folder whose name begins like another's is another folder.
    {L"C:\\m\\ab\\1.mp3|C:\\m\\a\\2.mp3", L"Best 1.5", L"C:\\m\\Best 1.5.m3u8", "ab\\1.mp3|a\\2.mp3"},
    {L"C:\\m\\a.mp3|C:\\n\\b.mp3", L"", L"C:\\m\\Playlist.m3u8", "a.mp3|..\\n\\b.mp3"},
    {L"C:\\m\\a.mp3|D:\\b.mp3", L"l.M3U", L"C:\\m\\l.M3U", "a.mp3|D:\\b.mp3"},
    {L"C:\\a.mp3|C:\\n\\b.mp3", L"", L"C:\\Playlist.m3u8", "a.mp3|n\\b.mp3"},
    {L"\\\\s\\m\\a.mp3|\\\\s\\n\\b.mp3", L"", L"\\\\s\\m\\Playlist.m3u8", "a.mp3|\\\\s\\n\\b.mp3"},
    {L"C:\\m\\o\\a.mp3", L"lists/", L"C:\\m\\o\\lists\\Playlist.m3u8", "..\\a.mp3"},
    {L"C:\\m\\o\\a.mp3", L"..\\.\\l", L"C:\\m\\l.m3u8", "o\\a.mp3"},
    {L"C:\\m\\o\\a.mp3", L"..\\..\\..\\l", L"C:\\l.m3u8", "m\\o\\a.mp3"},
    {L"C:\\m\\a.mp3", L"\\p\\l.m3u8", L"C:\\p\\l.m3u8", "..\\m\\a.mp3"},
    {L"C:\\m\\a.mp3", L" D:\\l ", L"D:\\l.m3u8", "C:\\m\\a.mp3"},
    {L"C:\\m\\#1 \u00e9.mp3|C:\\m\\ b.mp3", L"", L"C:\\m\\Playlist.m3u8", ".\\#1 \xC3\xA9.mp3|.\\ b.mp3"},
};

TEST(Playlist, StandsBesideTheOutputsAndNamesThemFromThere) {
    for (const PlaceCase& row : placeCases) {
        XStringArray parts;
        Split(parts, row.outputs, L"|");
        std::vector<XString> outputs;
        for (const XString& part : parts)
            outputs.push_back(part);
        const XString path = PlaylistPath(row.file, outputs);
        EXPECT_EQ(path, XString(row.path));
        std::string expected = "#EXTM3U\r\n";
        for (const char* at = row.entries; *at; ++at)
            expected += *at == '|' ? std::string("\r\n") : std::string(1, *at);
        EXPECT_EQ(BuildPlaylist(outputs, path, false), expected + "\r\n") << row.entries;
    }
    EXPECT_EQ(BuildPlaylist({L"C:\\m\\a.mp3"}, L"C:\\m\\l.m3u8", true), "#EXTM3U\r\nC:\\m\\a.mp3\r\n");
}

TEST(Playlist, ReadsItsSettings) {
    EXPECT_FALSE(ReadPlaylistSettings(L"-absolute=\"0\"").absolute);
    EXPECT_TRUE(ReadPlaylistSettings(nullptr).file.IsEmpty());
}

TEST(Playlist, KnowsAPlaylistByItsFirstLine) {
    for (const char* good : {"#EXTM3U", "#EXTM3U\r\na", "\xEF\xBB\xBF#EXTM3U"})
        EXPECT_TRUE(BeginsAsPlaylist(good)) << good;
    for (const char* bad : {"", "#EXTM3", "a.mp3", " #EXTM3U"})
        EXPECT_FALSE(BeginsAsPlaylist(bad)) << bad;
}

} // namespace
