// Option texts: -key=value, --key "value". The command line, effect chains and effect settings.
#pragma once

#include "foundation/XArray.h"

// Keys and values, always of equal count, in order of appearance; duplicates are kept.
class XKeyValueList {
public:
    XKeyValueList() = default;
    explicit XKeyValueList(const wchar_t* text, int start = 1) { Parse(text, start); }

    // A key stands behind - or --; a value behind blanks and '='; a quoted value runs to the next
    // double quote; there is no escape. Bare words vanish. `start` is a 1-based position.
    void Parse(const wchar_t* text, int start = 1);
    // First match without regard to case. Without one `out` is empty and the answer is false.
    bool GetValue(const wchar_t* key, XString& out) const;
    [[nodiscard]] bool Has(const wchar_t* key) const;
    // Parses a process's command line behind the program's name.
    void ParseCommandLine(const wchar_t* commandLine);

    XStringArray keys;
    XStringArray values;
};

// What follows the program's name, with blanks at both ends removed.
[[nodiscard]] XString CommandLineTail(const wchar_t* commandLine);
// GetCommandLineW; empty in the native build.
[[nodiscard]] XString ProcessCommandLine();
