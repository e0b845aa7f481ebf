// What the elements of a naming template stand for, for one file. Portable; forms' thread only.
#pragma once

#include "foundation/XTagList.h"

struct clFileItem;

// Fills `list`, which starts empty. What comes first wins: tags of the file, then what is known of its
// audio, path and the clock, then the extra elements. `extension` has its leading dot. Takes the next
// unique number, for good, if the template holds "[unique]" in this very spelling.
void FillElements(const clFileItem& item, const XString& extension, const XString& namingTemplate,
                  XTagList& list);
