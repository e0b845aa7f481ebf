// A path that owns its file: the file goes when the object gets a new name or ends.
#pragma once

#include "foundation/XString.h"

class XTempFile : public XString {
public:
    XTempFile() = default;
    ~XTempFile();
    XTempFile(const XTempFile&) = delete;
    XTempFile& operator=(const XTempFile&) = delete;

    // A new, empty file in the temporary folder; the earlier one is deleted first. False if it
    // could not be created (the name stays set).
    bool MakeNew(const wchar_t* prefix = L"TMP");
    bool MakeNewIn(const XString& folder, const wchar_t* prefix); // the same in a folder of one's own
    void DeleteOwned();
};
