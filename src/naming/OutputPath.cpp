// Where the output of one source goes.
#include "naming/OutputPath.h"

#include "foundation/XPath.h"
#include "host/clFileItem.h"
#include "naming/NamedFolders.h"

namespace {

constexpr wchar_t sourceDriveElement[] = L"[origdrive]";

XString BasePath(const clFileItem& item, const XString& folder) {
    if (!item.outputPath.IsEmpty())
        return item.outputPath;
    if (folder.IsEmpty())
        return StripExtension(item.sourcePath);
    const XString base = folder.EqualsNoCase(sourceDriveElement) ? folder : AddBackslash(folder);
    return base + NameWithoutExtension(item.sourcePath);
}

} // namespace

void ComputeOutputPath(clFileItem& item, const XString& folder, const XString&, const XString& extension) {
    item.outputPath = ResolveFolderName(BasePath(item, folder) + extension);
    CleanPath(item.outputPath, true, true);
}
