// Named folders against the real shell.
#include "naming/NamedFolders.h"

#include <gtest/gtest.h>

#include <windows.h>

TEST(NamedFolders, EveryNameHasAPathAndComesBack) {
    XStringArray paths;
    XStringArray names;
    NamedFolders(paths, names);
    ASSERT_EQ(paths.Count(), 10);
    ASSERT_EQ(names.Count(), 10);
    for (std::int64_t i = 0; i < paths.Count(); ++i) {
        EXPECT_EQ(paths[i].CharAt(XSTR_END), L'\\') << i;
        EXPECT_EQ(ResolveFolderName(names[i] + L"\\x"), paths[i] + L"x") << i;
    }
}

TEST(NamedFolders, LabelsOfDrives) {
    wchar_t label[MAX_PATH] = L"";
    GetVolumeInformationW(L"C:\\", label, MAX_PATH, nullptr, nullptr, nullptr, nullptr, 0);
    EXPECT_EQ(VolumeLabel(L"C:"), XString(label));
    EXPECT_TRUE(VolumeLabel(L"Q:\\").IsEmpty());
}
