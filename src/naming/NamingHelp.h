// What users are told about the naming language: a list of its elements and functions, and an example
// of what a template yields. Portable.
#pragma once

#include "foundation/XString.h"

#include <cstddef>

struct clNamingRow {
    const wchar_t* form; // as it is added to a template, with the names of its arguments; null: a heading
    const wchar_t* description; // or the text of the heading
};

// In the order of the list.
[[nodiscard]] std::size_t NamingRowCount() noexcept;
[[nodiscard]] const clNamingRow& NamingRowAt(std::size_t index) noexcept;

// The relative path, without extension, that the template gives a made-up file at this moment. Takes no
// unique number.
[[nodiscard]] XString NamingExample(const XString& namingTemplate);

// True if every file may get a name of its own. Elements in another spelling don't count.
[[nodiscard]] bool TellsFilesApart(const XString& namingTemplate);
