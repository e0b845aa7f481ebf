// The naming language as plain passes over whole copies of the text: slow, with nothing clever, the
// measure for the evaluator.
#pragma once

#include "foundation/XArray.h"
#include "foundation/XTagList.h"

// False if it had to be given up, because the template puts in more than some hundred thousand units.
[[nodiscard]] bool EvaluatePlainly(XString& out, const XString& naming, XTagList& tags,
                                   const XStringArray* extras);
