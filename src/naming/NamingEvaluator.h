// The naming language: turns a template such as "[album]\[track] - [title]" and the tags of one file
// into its relative output name, folders included. Portable; nothing here fails.
#pragma once

#include "foundation/XArray.h"
#include "foundation/XTagList.h"

// The evaluated text, not cleaned for the file system. What is malformed stays in it as written.
// `elements`: values by key, several values of a tag parted by CR; left unchanged but for `current`.
// `extras`: further elements, each word being its own key, whose values may make folders; may be null.
[[nodiscard]] XString EvaluateNaming(const XString& namingTemplate, XTagList& elements,
                                     const XStringArray* extras);

// True if the template holds an element that only the file's tags or audio format can fill. Wrappers
// and functions are not looked at.
[[nodiscard]] bool HasDynamicItem(const XString& namingTemplate);
