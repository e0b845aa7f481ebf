// The counter in the registry.
#include "naming/NamingSystem.h"

#include "host/Settings.h"

#include <gtest/gtest.h>

TEST(NamingSystem, TheCounterIsKept) {
    constexpr wchar_t path[] = L"Software\\TonemillTestNaming";
    SetSettingsRoot(HKEY_CURRENT_USER, path);
    EXPECT_EQ(TakeUniqueNumber(), 1u);
    EXPECT_EQ(TakeUniqueNumber(), 2u);
    EXPECT_EQ(RegReadDword(Setting::uniqueNumber), 2u);
    RegDeleteTree(HKEY_CURRENT_USER, L"Software", L"TonemillTestNaming");
}
