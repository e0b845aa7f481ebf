// What the settings of "Resample" make of a source. Portable.
#pragma once

#include "plugins/common/PcmFormat.h"
#include "plugins/dsp/Quantizer.h"

// Settings: -rate="HERTZ|source" -quality="..." -bits="..." -dither="..." -only="..."; without an option
// its first word, and `resampleRate`.
inline constexpr int resampleRate = 44100, resampleLowestRate = 1000, resampleHighestRate = 768000;
inline constexpr const wchar_t* resampleQualityWords[] = {L"veryhigh", L"high"};
inline constexpr const wchar_t* resampleBitsWords[] = {L"source", L"16", L"24", L"32", L"float"};
inline constexpr const wchar_t* resampleDitherWords[] = {L"triangular", L"shaped", L"none"};
// "down": neither the rate nor the depth ever rises.
inline constexpr const wchar_t* resampleOnlyWords[] = {L"any", L"down"};

struct ResampleTarget {
    std::uint32_t frequency = 0;
    bool isFloat = false;
    int bits = 0;    // 32 for float
    int quality = 0; // index of resampleQualityWords
    DitherKind dither = ditherTriangular;

    // False with a text for the user.
    [[nodiscard]] bool Read(const wchar_t* settings, const PcmFormat& source, XString& error);
    [[nodiscard]] bool IsSameAs(const PcmFormat& source) const noexcept;
};
