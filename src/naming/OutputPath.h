// The path of the file to write for one source, and the cleaning that every output path goes through.
// Portable; forms' thread only. Nothing here fails: a path that can't be made is the worker's to report.
#pragma once

#include "foundation/XString.h"

struct clFileItem;

// Sets item.outputPath. Its earlier content, if any, is a path without extension that the user chose.
// Otherwise `folder`, in the form that users see, may be empty: the output then lies beside the source.
// A `namingTemplate` names the output, and folders below `folder`, after the file's tags; an empty one
// keeps the source's name. `extension` has its leading dot.
void ComputeOutputPath(clFileItem& item, const XString& folder, const XString& namingTemplate,
                       const XString& extension);

// Replaces what no file name may hold, trims components and cuts those over 254 characters, in place.
// With `hasRoot` the root is left alone. With `enforceLimit` the whole is brought below 260 characters
// where that can be done, and separators are tidied.
void CleanPath(XString& path, bool enforceLimit, bool hasRoot);
