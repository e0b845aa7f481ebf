// The two formatters behind XString::Format.
#pragma once

#include "foundation/XString.h"

#include <cstdarg>

// The system's wide formatter, for results below 0x6400000 units. False if it could not; natively
// always, so that the built-in one serves. `arguments` stays as it was.
[[nodiscard]] bool SystemFormat(XString& out, const wchar_t* pattern, va_list arguments);

// Knows %% %s %d %i %u %x %X %f, a decimal width and a precision; other characters behind % are
// skipped, so there are no 64-bit integers. Width pads numbers with zeros; %f has 5 decimals
// unless told. A second '.' in one directive empties the whole result.
void BuiltInFormat(XString& out, const wchar_t* pattern, va_list arguments);
