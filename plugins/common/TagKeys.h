// The contract's names for the keys of tags, which sources spell in many ways, and several values of one
// key. Decoders fill their lists by it; encoders foretell by it what a decoder will find.
#pragma once

#include "foundation/XTagList.h"

inline constexpr std::int64_t mostTagNames = 4096; // of a list that AddTag fills

// Adds a value under the contract's name for `key` (any spelling of a source), joining several
// values of one key by CR. Line ends inside a value become LF. False if the list or its key has no room left.
bool AddTag(XTagList& tags, const XString& key, const XString& text);
// Joins track and disc with their totals: "3" and "12" become "3/12".
void JoinTotals(XTagList& tags);
