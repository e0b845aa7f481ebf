// The process's own command line.
#include "foundation/XKeyValueList.h"

#include <windows.h>

XString ProcessCommandLine() {
    return XString(GetCommandLineW());
}
