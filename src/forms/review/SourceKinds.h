// What the shell knows of the types of sources, asked for once per extension: lists are long, and
// their files of few kinds.
#pragma once

#include "foundation/XArray.h"

struct clSourceKind {
    XString extension;  // as the path had it
    int iconIndex = -1; // of the system's small icons, -1 for none
    XString typeName;
};

class clSourceKinds {
public:
    // Borrowed until the next call.
    [[nodiscard]] const clSourceKind& Of(const XString& path);

private:
    XArray<clSourceKind> kinds;
};
