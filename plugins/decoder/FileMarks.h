// Marks that a source's bytes bear: kinds of tags around the audio, and copy protection. Portable; the
// bytes come from anywhere and may be damaged.
#pragma once

#include "foundation/XString.h"

#include <cstddef>

inline constexpr std::size_t tagMarkBytes = 160; // of a file's start and end that tell its tags

// "ID3v2.3 & APEv2 & ID3v1.1"; empty for none.
[[nodiscard]] XString TagKindsAround(const unsigned char* start, std::size_t startSize,
                                     const unsigned char* end, std::size_t endSize);
// Bytes of the ID3v2 tag at the start, 0 if there is none.
[[nodiscard]] std::size_t Id3v2Bytes(const unsigned char* start, std::size_t size) noexcept;
// Joins the names of kinds by " & ", each once.
void AddTagKind(XString& kinds, const XString& kind);

// Whether a moov box of an MP4 file, or as much as there is of it, has audio that is protected against
// copying (sample entries "drms" and "enca").
[[nodiscard]] bool HasProtectedAudio(const unsigned char* moov, std::size_t size) noexcept;
