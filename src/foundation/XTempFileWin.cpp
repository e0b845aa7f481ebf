// Names and makes temporary files.
#include "foundation/XTempFile.h"

#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"
#include "foundation/XRandom.h"

namespace {

bool CreateEmpty(const XString& path) {
    XFile file(path);
    return file.Open(GENERIC_READ | GENERIC_WRITE, CREATE_ALWAYS);
}

} // namespace

XTempFile::~XTempFile() {
    DeleteOwned();
}

bool XTempFile::MakeNew(const wchar_t* prefix) {
    return MakeNewIn(TempFolder(), prefix);
}

bool XTempFile::MakeNewIn(const XString& folder, const wchar_t* prefix) {
    DeleteOwned();
    wchar_t name[MAX_PATH] = {};
    if (GetTempFileNameW(folder, prefix, 0, name))
        Assign(name);
    else
        Format(L"%s%s%d.tmp", AddBackslash(folder).Text(), prefix, static_cast<int>(RandomBelow(10000)));
    if (CreateEmpty(*this))
        return true;
    MakeFolders(FolderOf(*this));
    return CreateEmpty(*this);
}

void XTempFile::DeleteOwned() {
    if (!IsEmpty())
        DeleteOneFile(*this);
    Clear();
}
