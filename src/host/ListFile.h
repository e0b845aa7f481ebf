// The list of sources that another program hands over: UTF-16LE, one path a line.
#pragma once

#include "foundation/XArray.h"

#include <cstdint>

class XFile;

// Appends the lines that are not empty. A line ends at LF, CR LF or a lone CR; byte-order marks at
// its start, zero units and an odd last byte are dropped. False if there was no line at all, not even
// an empty one.
bool ParseListFile(const void* bytes, std::uint64_t byteCount, XStringArray& lines);

// Replaces the content of `lines` by the file's lines in the order of CompareNoCase; equal ones in
// any order. False, and no lines, if the file can't be read. Windows only.
bool ReadListFile(const XString& path, XStringArray& lines);

// Writes behind the end of a file that is open for writing: whole or, as on a full disk, not at all.
// Windows only.
[[nodiscard]] bool AppendWhole(XFile& file, const XString& text);
