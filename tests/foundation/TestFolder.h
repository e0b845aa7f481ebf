// A new, empty folder for one test, removed with what is in it.
#pragma once

#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "foundation/XRandom.h"

#include <gtest/gtest.h>

#include <string>

class TestFolder : public testing::Test {
protected:
    void SetUp() override {
        folder = TempFolder() + L"tmtest" + DecimalText(GetCurrentProcessId()) + L"-" +
                 DecimalText(RandomBelow(1000000)) + L"\\";
        ASSERT_TRUE(MakeFolders(folder));
    }
    void TearDown() override { EXPECT_TRUE(DeleteTree(folder)); }
    XString Put(const wchar_t* name, const void* bytes, DWORD count) {
        XFile file(folder + name);
        EXPECT_TRUE(file.Open(GENERIC_WRITE, CREATE_ALWAYS));
        EXPECT_TRUE(file.Write(bytes, count));
        return file.path;
    }
    std::string Content(const wchar_t* name) {
        XBuffer bytes;
        return ReadWholeFile(folder + name, bytes) ? std::string(bytes.Bytes(), bytes.Bytes() + bytes.size)
                                                   : "no file";
    }
    XString folder;
};
