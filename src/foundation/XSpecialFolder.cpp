// The derivations, for systems that lack the newer folders.
#include "foundation/XSpecialFolder.h"

#include "foundation/XPath.h"

namespace {

constexpr FolderDerivation derivations[] = {
    {26, 5, true, L"Application Data\\"}, // application data, from personal
    {13, 5, false, L"My Music\\"},        {39, 5, false, L"My Pictures\\"}, {14, 5, false, L"My Video\\"},
    {53, 46, false, L"My Music\\"}, // the common ones, from common documents
    {54, 46, false, L"My Pictures\\"},    {55, 46, false, L"My Video\\"},
};

} // namespace

const FolderDerivation* FindFolderDerivation(int id) noexcept {
    for (const FolderDerivation& derivation : derivations)
        if (derivation.id == id)
            return &derivation;
    return nullptr;
}

XString DeriveFolder(const FolderDerivation& derivation, const XString& base) {
    XString folder(base);
    XString dropped;
    if (derivation.popsOne)
        PopLastFolder(dropped, folder);
    return folder + derivation.appended;
}

XString FinishFolder(const XString& folder) {
    XString finished = AddBackslash(folder);
    if (finished.Count() == 1)
        finished.Clear();
    return finished;
}
