// A registry key and a plug-in folder of a test's own.
#pragma once

#include "tests/foundation/TestFolder.h"

class HostTest : public TestFolder {
protected:
    void SetUp() override;
    void TearDown() override;

    // Copies one of the test plug-ins to `place` below the folder ("decoder\\x.dll"); returns its path.
    XString Place(const wchar_t* fake, const wchar_t* place);

    XString registryPath;
};
