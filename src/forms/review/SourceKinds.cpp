#include "forms/review/SourceKinds.h"

#include "foundation/XFileSystem.h"
#include "host/DecoderCatalogue.h"

const clSourceKind& clSourceKinds::Of(const XString& path) {
    const XString extension = SourceExtension(path);
    for (const clSourceKind& kind : kinds)
        if (kind.extension.EqualsNoCase(extension))
            return kind;
    clSourceKind* kind = kinds.AddNew();
    kind->extension = extension;
    SourceIconCache fresh;
    kind->iconIndex = GetSourceIconIndex(fresh, path);
    kind->typeName = FileTypeName(path);
    return *kind;
}
