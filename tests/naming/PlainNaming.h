// The naming language as plain passes over whole copies of the text: slow, with nothing clever, the
// measure for the evaluator.
#pragma once

#include "foundation/XArray.h"
#include "foundation/XTagList.h"

// False if it was given up: long texts with many replacements take too long this way.
[[nodiscard]] bool EvaluatePlainly(XString& out, const XString& naming, XTagList& tags,
                                   const XStringArray* extras);
