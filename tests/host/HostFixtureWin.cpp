#include "HostFixtureWin.h"

#include "host/PluginFolders.h"
#include "host/Settings.h"

void HostTest::SetUp() {
    const XString own = L"TmHost" + DecimalText(GetCurrentProcessId());
    registryPath = L"Software\\TonemillTests\\" + own;
    SetSettingsRoot(HKEY_CURRENT_USER, registryPath);
    TestFolder::SetUp();
    for (const wchar_t* kind : {L"decoder", L"encoder", L"DSPs"})
        ASSERT_TRUE(MakeFolders(folder + kind));
    SetPluginRoot(folder);
}

void HostTest::TearDown() {
    RegDeleteTree(HKEY_CURRENT_USER, L"Software\\TonemillTests",
                  L"TmHost" + DecimalText(GetCurrentProcessId()));
    SetPluginRoot(nullptr);
    TestFolder::TearDown();
}

XString HostTest::Place(const wchar_t* fake, const wchar_t* place) {
    const XString path = folder + place;
    EXPECT_TRUE(CopyFileW(ProgramFolder() + L"fakes\\" + fake + L".dll", path, FALSE)) << GetLastError();
    return path;
}
