// Natively no process has a Windows command line.
#include "foundation/XKeyValueList.h"

XString ProcessCommandLine() {
    return XString();
}
