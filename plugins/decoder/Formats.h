// The formats that the decoder claims: one row per extension, with the name that users know.
#pragma once

struct DecoderFormat {
    const wchar_t* extension; // with its dot
    const wchar_t* description;
};

// Null behind the last row.
[[nodiscard]] const DecoderFormat* FormatAt(unsigned index) noexcept;
