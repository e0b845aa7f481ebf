// The parts of the naming language that stand for tag values: elements and wrappers.
#pragma once

#include "foundation/XArray.h"
#include "foundation/XTagList.h"
#include "naming/NamingText.h"

// Row by row of the element table, then of `extras` (may be null): every occurrence becomes the first
// line of its tag.
void ReplaceElements(clNamingText& work, XTagList& values, const XStringArray* extras);
// "[tag]key[]": the first line of any tag. The first one that isn't closed ends the pass.
void ReplaceTagWrappers(clNamingText& work, XTagList& values);
// "[tags]key,delimiter[]": all values of a tag. With another number of commas it vanishes.
void ReplaceTagsWrappers(clNamingText& work, XTagList& values);
