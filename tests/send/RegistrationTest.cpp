// The entries below a key and in a folder of the test's own: written, replaced, and gone without a trace.
#include "../foundation/TestFolder.h"

#include "foundation/XHandles.h"
#include "host/Settings.h"
#include "send/Registration.h"

namespace {

constexpr wchar_t testKey[] = L"Software\\TonemillSendTests";

class Registration : public TestFolder {
protected:
    void SetUp() override {
        TestFolder::SetUp();
        RegDeleteTree(HKEY_CURRENT_USER, L"Software", L"TonemillSendTests");
        places = {testKey, folder, folder};
    }
    void TearDown() override {
        RegDeleteTree(HKEY_CURRENT_USER, L"Software", L"TonemillSendTests");
        TestFolder::TearDown();
    }
    bool Register(const wchar_t* extensions) {
        XStringArray list;
        Split(list, extensions, L"|");
        return RegisterEntries(places, list);
    }
    // All keys below, "a|a\b|c|".
    static XString Keys(const XString& path, const XString& shown = L"") {
        XStringArray names;
        RegEnumSubkeys(HKEY_CURRENT_USER, path, names);
        names.SortTexts(true);
        XString all;
        for (const XString& name : names)
            all += shown + name + L"|" + Keys(path + L"\\" + name, shown + name + L"\\");
        return all;
    }
    XString Value(const wchar_t* key, const wchar_t* name) {
        return RegReadString(name, HKEY_CURRENT_USER, XString(testKey) + L"\\" + key);
    }
    clExplorerPlaces places;
};

TEST_F(Registration, ComesAndGoesWithoutATrace) {
    EXPECT_FALSE(AreEntriesRegistered(places));
    EXPECT_TRUE(UnregisterEntries(places)); // nothing is there yet
    EXPECT_EQ(Keys(testKey), XString());
    ASSERT_TRUE(Register(L".aaa|.bbb"));
    EXPECT_TRUE(AreEntriesRegistered(places));
    constexpr wchar_t verb[] = L"SystemFileAssociations\\.aaa\\shell\\ZtTonemill";
    EXPECT_EQ(Value(verb, L""), XString(L"Convert with Tonemill"));
    EXPECT_EQ(Value(verb, L"MultiSelectModel"), XString(L"Player"));
    EXPECT_EQ(Value(XString(verb) + L"\\command", L""), L"\"" + folder + L"ZtSend.exe\" \"%1\"");
    EXPECT_FALSE(Value(L"Directory\\shell\\ZtTonemill\\command", L"").IsEmpty());
    EXPECT_TRUE(IsFile(folder + L"Tonemill.lnk"));

    clExplorerPlaces elsewhere = places;
    elsewhere.programs += L"copy\\";
    EXPECT_FALSE(AreEntriesRegistered(elsewhere));
    EXPECT_TRUE(UnregisterEntries(places));
    EXPECT_FALSE(AreEntriesRegistered(places));
    EXPECT_EQ(Keys(testKey), XString());
    EXPECT_FALSE(PathExists(folder + L"Tonemill.lnk"));
}

TEST_F(Registration, LeavesAnotherCopyOfTheProgramAlone) {
    clExplorerPlaces other = places;
    other.programs += L"co py\\";
    ASSERT_TRUE(MakeFolders(other.programs));
    Put(L"co py\\ZtSend.exe", "", 0);
    XStringArray extensions;
    extensions.AddString(L".aaa");
    ASSERT_TRUE(RegisterEntries(other, extensions));
    EXPECT_TRUE(UnregisterEntries(places));
    EXPECT_TRUE(AreEntriesRegistered(other));
    EXPECT_TRUE(IsFile(folder + L"Tonemill.lnk"));
    // What leads to a copy that is gone leads nowhere.
    ASSERT_TRUE(DeleteOneFile(other.programs + L"ZtSend.exe"));
    EXPECT_TRUE(UnregisterEntries(places));
    EXPECT_EQ(Keys(testKey), XString());
    EXPECT_FALSE(IsFile(folder + L"Tonemill.lnk"));
}

TEST_F(Registration, LeavesWhatIsNotOurs) {
    const XString associations = XString(testKey) + L"\\SystemFileAssociations\\";
    RegWriteString(L"Play", L"", HKEY_CURRENT_USER, associations + L".aaa\\shell\\play");
    RegWriteString(L"audio", L"PerceivedType", HKEY_CURRENT_USER, associations + L".bbb");
    ASSERT_TRUE(Register(L".aaa|.bbb|.old"));
    // The decoder of .old is gone: so is its entry, also if the next start does not know of it.
    ASSERT_TRUE(Register(L".aaa|.bbb"));
    EXPECT_EQ(Keys(testKey).Find(L".old"), 0);
    // A shortcut of that name to another program is the user's.
    ASSERT_TRUE(DeleteOneFile(folder + L"Tonemill.lnk"));
    Put(L"Tonemill.lnk", "mine", 4);
    ASSERT_TRUE(UnregisterEntries(places));
    EXPECT_TRUE(IsFile(folder + L"Tonemill.lnk"));
    EXPECT_EQ(Keys(testKey),
              XString(L"SystemFileAssociations|SystemFileAssociations\\.aaa|"
                      L"SystemFileAssociations\\.aaa\\shell|"
                      L"SystemFileAssociations\\.aaa\\shell\\play|SystemFileAssociations\\.bbb|"));
}

} // namespace
