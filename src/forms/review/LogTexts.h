// What the form of errors and information says, copies and hands over: texts without a window.
#pragma once

#include "engine/Records.h"

// The two logs of a batch, as the images of the form's list count them.
enum clLogKind : int {
    logErrors = 0,
    logInformation = 1,
};

// `tab` counts from 0. With information alone the one tab stands for the information.
[[nodiscard]] clLogKind LogOfTab(int tab, bool hasErrors, bool hasInfo);
[[nodiscard]] XString LogCaption(bool hasErrors, bool hasInfo);
[[nodiscard]] const wchar_t* CopyButtonText(clLogKind kind);
// The line that names the file of an entry.
[[nodiscard]] XString EntryTitle(const clLogEntry& entry, clLogKind kind);

// Builds the text to be copied, entry by entry, in time linear in its length.
class clCopyText {
public:
    void AddEntry(const wchar_t* title); // on a line of its own
    void AddLine(const wchar_t* line);   // three blanks in

    XString text; // without a last line end
};

// The sources of all entries, in order and as often as they stand there: the list file of another
// run. UTF-16LE, each line ended by CR LF, no byte-order mark.
[[nodiscard]] XString FailedSources(const XArray<clLogEntry>& log);
// `programFolder` with its trailing backslash.
[[nodiscard]] XString ReconvertCommandLine(const XString& programFolder, const XString& listFile);

// Steps of 120 in a turn of the wheel, rounded away from 0; negative towards the user.
[[nodiscard]] int WheelSteps(int delta);
