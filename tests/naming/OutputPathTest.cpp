// Output paths of the three ways to choose a place, and folder names that need no real shell.
#include "naming/OutputPath.h"

#include "host/clFileItem.h"
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
