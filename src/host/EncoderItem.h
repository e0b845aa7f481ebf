// Item texts of the encoder list, and the list of encoders that could be installed. Portable.
// An encoder's item text is its name; a profile's is: its name, a blank, the encoder's name in quotes.
#pragma once

#include "foundation/XArray.h"

[[nodiscard]] bool IsProfileItem(const XString& itemText); // ends in a double quote
[[nodiscard]] XString EncoderNameOf(const XString& itemText);
[[nodiscard]] XString ProfileItemText(const XString& profileName, const XString& encoderName);

// An encoder that is known but not there.
struct clSmartInstall {
    XString extension; // with its dot; only finds an icon
    XString name;
    XString address; // of the page where it can be had
};

inline constexpr wchar_t smartInstallFileName[] = L"zTMSmartInstall.txt"; // beside the program

// Three lines a record; stops at the first record that is not whole. Replaces the content of `out`.
void SmartInstallFromLines(XArray<clSmartInstall>& out, const XStringArray& lines);
// False for a record whose name the list shows already (A-Z folded) or that contains "read only".
[[nodiscard]] bool IsSmartInstallOffered(const clSmartInstall& record, const XStringArray& listedNames);
