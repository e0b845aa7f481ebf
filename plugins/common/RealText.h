// Numbers with a fraction, as users type them into settings and panels. Portable.
#pragma once

#include "foundation/XString.h"

// Optional sign, digits, and after a point or a comma up to three more. False for any other text.
[[nodiscard]] bool ReadReal(const XString& text, double& value) noexcept;
// With a point and without zeros at the end: "-23", "0.5", "-1.25".
[[nodiscard]] XString RealText(double value);
