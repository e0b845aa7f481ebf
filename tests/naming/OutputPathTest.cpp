// Output paths of the three ways to choose a place, and folder names that need no real shell.
#include "naming/OutputPath.h"

#include "host/clFileItem.h"
#include "naming/ExtraElements.h"
#include "naming/NamedFolders.h"

#include <gtest/gtest.h>

namespace {

struct OutputRow {
    const wchar_t* source;
    const wchar_t* earlier; // output path that the user chose
    const wchar_t* folder;
    const wchar_t* extension;
    const wchar_t* expected;
};
struct DynamicRow {
    const wchar_t* folder;
    const wchar_t* naming;
    const wchar_t* expected;
};

TEST(OutputPath, FollowsTheChosenPlace) {
    constexpr OutputRow rows[] = {
        {L"D:\\a\\song.flac", L"", L"", L".mp3", L"D:\\a\\song.mp3"},
        {L"D:\\a\\song", L"", L"", L".mp3", L"D:\\a\\song.mp3"},
        {L"D:\\a.b\\song", L"", L"", L".mp3", L"D:\\a.mp3"},
        {L"D:\\a\\song.flac", L"", L"C:\\Out", L".mp3", L"C:\\Out\\song.mp3"},
        {L"D:\\a\\song.flac", L"", L"C:\\Out\\", L".mp3", L"C:\\Out\\song.mp3"},
        {L"D:\\a\\song.flac", L"E:\\my name", L"C:\\Out", L".mp3", L"E:\\my name.mp3"},
        {L"D:\\a\\song.flac", L"E:\\my.name", L"", L".mp3", L"E:\\my.name.mp3"},
        {L"D:\\a\\song.flac", L"", L"", L".IGNORE", L"D:\\a\\song.IGNORE"},
        {L"\\\\srv\\m\\song.flac", L"", L"", L".mp3", L"\\\\srv\\m\\song.mp3"},
    };
    for (const OutputRow& row : rows) {
        clFileItem item;
        item.sourcePath = row.source;
        item.outputPath = row.earlier;
        ComputeOutputPath(item, row.folder, L"", row.extension);
        EXPECT_EQ(item.outputPath, XString(row.expected));
    }
}

TEST(OutputPath, TemplatesNameFilesAfterTheirTags) {
    XTagList tags;
    tags.Add(L"artist", L"A.B.C.");
    tags.Add(L"album", L"Ox/Ew: Live");
    tags.Add(L"title", L"What?");
    tags.Add(L"genre", L"Pop\\Rock");
    tags.Add(L"mood", L"..");
    clFileItem item;
    ASSERT_TRUE(tags.Serialize(item.tagImage));
    item.SetStage(stageTags);
    item.sourcePath = L"D:\\a\\b\\song.flac";
    zTMExtraElements.Add(L"[station]", L"Radio\\One");
    constexpr DynamicRow rows[] = {
        {L"C:\\Out", L"[title]", L"C:\\Out\\What\u00bf.mp3"},
        {L"C:\\Out\\", L"[album]", L"C:\\Out\\Ox-Ew; Live.mp3"},
        {L"C:\\Out", L"[artist]\\[artist]", L"C:\\Out\\A.B.C\\A.B.C..mp3"},
        {L"C:\\Out", L"[album]\\", L"C:\\Out\\Ox-Ew; Live.mp3"},
        {L"C:\\Out", L"[composer]", L"C:\\Out.mp3"}, // nothing: the folder gives the name
        {L"C:\\Out", L"[mood]\\[mood]\\x", L"C:\\Out\\x.mp3"},
        {L"C:\\Out", L"[genre]\\[origpath]\\[extension]", L"C:\\Out\\Pop-Rock\\a\\b\\mp3.mp3"},
        {L"[origdrive]", L"[title]", L"D:\\What\u00bf.mp3"},
        {L"[origdrive]Music\\", L"x", L"D:\\Music\\x.mp3"},
        {L"[origdrive]", L"", L"[origdrive]song.mp3"}, // only templates fill it in
        {L"C:\\Out", L"[station]\\[title]", L"C:\\Out\\Radio\\One\\What\u00bf.mp3"},
        {L"", L"[title]", L"D:\\a\\b\\song.mp3"},
    };
    for (const DynamicRow& row : rows) {
        item.outputPath.Clear();
        ComputeOutputPath(item, row.folder, row.naming, L".mp3");
        EXPECT_EQ(item.outputPath, row.expected) << row.naming;
    }
    zTMExtraElements.Clear();
}

TEST(OutputPath, NamedFoldersResolve) {
    const XString music = NamedFolderPath(13);
    struct Row {
        const wchar_t* text;
        XString expected;
    };
    const Row rows[] = {
        {L"Music", music.Left(music.Count() - 1)},
        {L"Music\\", music.Left(music.Count() - 1)},
        {L"Music\\Pop", music + L"Pop"},
        {L"Musical", L"Musical"},
        {L"music", L"music"},
        {L"[Temporary Folder]\\x", NamedFolderPath(0x5003) + L"x"},
        {L"Data (D:)", L"D:\\"},
        {L"(D:)", L"(D:)"},
        {L"My (Disk)", L"My (Disk)"},
        {L"x\\a (D:)", L"x\\a (D:)"},
        {L"", L""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(ResolveFolderName(row.text), row.expected);
    clFileItem item;
    item.sourcePath = L"D:\\a\\song.flac";
    ComputeOutputPath(item, L"Music\\Pop", L"", L".mp3");
    EXPECT_EQ(item.outputPath, music + L"Pop\\song.mp3");
}

TEST(OutputPath, PathsShowTheirNames) {
    const XString music = NamedFolderPath(13);
    EXPECT_EQ(FolderDisplayName(music, false), XString(L"Music"));
    EXPECT_EQ(FolderDisplayName(music.Left(music.Count() - 1), false), XString(L"Music"));
    EXPECT_EQ(FolderDisplayName(music.Lower() + L"Pop", false), XString(L"Music\\Pop\\"));
    EXPECT_EQ(FolderDisplayName(music + L"a.mp3", true), XString(L"Music\\a.mp3"));
    EXPECT_EQ(FolderDisplayName(L"Q:\\elsewhere", false), XString(L"Q:\\elsewhere"));
    EXPECT_EQ(FolderDisplayName(L"\\", false), XString(L"\\"));
}

#ifndef _WIN32
TEST(OutputPath, DrivesShowTheirLabels) {
    EXPECT_EQ(FolderDisplayName(L"d:", false), XString(L"Data (D:)"));
    EXPECT_EQ(FolderDisplayName(L"e:\\", false), XString(L"e:\\"));
}
#endif

} // namespace
