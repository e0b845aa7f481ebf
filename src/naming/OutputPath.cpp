// Where the output of one source goes.
#include "naming/OutputPath.h"

#include "foundation/XPath.h"
#include "host/clFileItem.h"
#include "naming/ExtraElements.h"
#include "naming/FillElements.h"
#include "naming/NamedFolders.h"
#include "naming/NamingEvaluator.h"

namespace {

constexpr wchar_t sourceDriveElement[] = L"[origdrive]";

// The place that the template makes of the file's tags, without extension.
XString DynamicBase(const clFileItem& item, XString base, const XString& namingTemplate,
                    const XString& extension) {
    XTagList elements;
    FillElements(item, extension, namingTemplate, elements);
    base.Replace(sourceDriveElement, elements.Get(L"origdrive"));
    XStringArray extras;
    for (const XTagItem& extra : zTMExtraElements.items)
        extras.AddString(extra.key);
    base.Append(EvaluateNaming(namingTemplate, elements, &extras));
    CleanPath(base, true, true);
    return base;
}

XString BasePath(const clFileItem& item, const XString& folder, const XString& namingTemplate,
                 const XString& extension) {
    if (!item.outputPath.IsEmpty())
        return item.outputPath;
    if (folder.IsEmpty())
        return StripExtension(item.sourcePath);
    // The source's drive brings its own backslash.
    const XString base = folder.EqualsNoCase(sourceDriveElement) ? folder : AddBackslash(folder);
    if (namingTemplate.IsEmpty())
        return base + NameWithoutExtension(item.sourcePath);
    return DynamicBase(item, base, namingTemplate, extension);
}

} // namespace

void ComputeOutputPath(clFileItem& item, const XString& folder, const XString& namingTemplate,
                       const XString& extension) {
    item.outputPath = ResolveFolderName(BasePath(item, folder, namingTemplate, extension) + extension);
    CleanPath(item.outputPath, true, true);
}
