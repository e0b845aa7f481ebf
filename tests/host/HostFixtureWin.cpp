#include "HostFixtureWin.h"

#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "host/PluginFolders.h"
#include "host/Settings.h"

#include <cstring>

void HostTest::SetUp() {
    const XString own = L"TmHost" + DecimalText(GetCurrentProcessId());
    registryPath = L"Software\\TonemillTests\\" + own;
    SetSettingsRoot(HKEY_CURRENT_USER, registryPath);
    folder = TempFolder() + own + L"\\";
    for (const wchar_t* kind : {L"decoder", L"encoder", L"DSPs"})
        ASSERT_TRUE(MakeFolders(folder + kind));
    SetPluginRoot(folder);
}

void HostTest::TearDown() {
    RegDeleteTree(HKEY_CURRENT_USER, L"Software\\TonemillTests",
                  L"TmHost" + DecimalText(GetCurrentProcessId()));
    DeleteTree(folder);
    SetPluginRoot(nullptr);
}

XString HostTest::Place(const wchar_t* fake, const wchar_t* place) {
    const XString path = folder + place;
    EXPECT_TRUE(CopyFileW(ProgramFolder() + L"fakes\\" + fake + L".dll", path, FALSE)) << GetLastError();
    return path;
}

void HostTest::PlaceText(const char* text, const wchar_t* place) {
    XFile file(folder + place);
    ASSERT_TRUE(file.Open(GENERIC_WRITE, CREATE_ALWAYS));
    ASSERT_TRUE(file.Write(text, static_cast<DWORD>(std::strlen(text))));
}
