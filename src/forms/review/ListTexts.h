// What the list of files to convert says, how wide its columns are and what comes of a closed list:
// decisions without a window. Portable; forms' thread only.
#pragma once

#include "foundation/XString.h"

struct clFileItem;

// True of an output extension and of a source that stand for no plain file.
[[nodiscard]] bool IsNoFile(const XString& extensionOrPath);

// What decides on the outputs' names.
struct clListNaming {
    const XString& codecName;
    const XString& outputFolder;   // empty: that of the source
    const XString& namingTemplate; // empty: the name of the source
    const XString& extension;      // with its dot
    bool needsTags = false;        // the template takes tags
};

// The path that the file gets without a rename, less its extension, as users know it. Empty while the
// tags that it needs are not read. The item is as before in the end.
[[nodiscard]] XString ComputedDestination(clFileItem& file, const clListNaming& naming);
// `description` is the type of a source that is no plain file.
[[nodiscard]] XString SourceText(const XString& path, const XString& description);

// "C:\" if the text begins with such a root, else empty.
[[nodiscard]] XString DriveRootOf(const XString& destination);
[[nodiscard]] XString FreeSpaceSentence(std::int64_t bytes, const XString& root);

// The mode for FormatDuration from the setting of the time format.
[[nodiscard]] int LengthModeOf(std::uint32_t setting);

struct clListSummary {
    std::int64_t files = 0;          // that are checked
    std::int64_t estimatedBytes = 0; // of these
    bool isComplete = false;         // every row was filled
};
[[nodiscard]] XString SummaryText(const clListSummary& summary, const XString& codecName,
                                  const XString& freeSpaceSentence);

inline constexpr int listColumns = 5;
// Pixels of each column; `scale` turns pixels at 96 dpi into those of the screen.
void GetColumnWidths(int listWidth, int (*scale)(int), int (&widths)[listColumns]);

// Takes a row over into its item. `shown` is what the row says, `computed` the name without a rename.
void CommitRow(clFileItem& file, const XString& shown, const XString& computed, bool isChecked);
