// The functions of the naming language, such as "[RIGHT]2,[year][]".
#pragma once

#include "foundation/XTagList.h"
#include "naming/NamingText.h"

// Computes call after call, the right-most first, each up to the first closing token behind it. One
// call without that token stops all that stand left of it too. `values` are escaped; the source's
// folders are taken from `elements` as they are.
void EvaluateFunctions(clNamingText& work, XTagList& values, XTagList& elements);
