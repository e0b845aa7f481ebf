// The tree of a log: a root per entry, a child per line and an empty one after them.
#pragma once

#include "forms/review/LogTexts.h"
#include "toolkit/XTreeView.h"

inline constexpr int imageOfLine = 2; // behind those of clLogKind

// Replaces all items; a null log empties the tree. Entries without a line are left out, the others
// stand expanded. Linear in the number of lines, and drawn once.
void FillLogTree(HWND tree, const XArray<clLogEntry>* log, clLogKind kind);

// TVE_EXPAND or TVE_COLLAPSE for every root; children have no children of their own.
void ExpandRoots(HWND tree, WPARAM code);

// All items as they stand in the tree: roots up to 999 characters, their children three blanks in.
[[nodiscard]] XString LogTreeText(const XTreeView& tree);
