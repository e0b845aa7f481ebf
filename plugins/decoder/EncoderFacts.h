// What a source's own bytes tell of the encoder that wrote it and its settings. Portable; the bytes come
// from anywhere and may be damaged.
#pragma once

#include "foundation/XString.h"

#include <cstddef>
#include <cstdint>

struct EncoderFacts {
    XString encoder;        // "LAME 3.100"
    XString settings;       // "-V2"
    bool tellsGaps = false; // what is to be cut off before and behind the audio
};

// The header frame that LAME and others put in front, in the bytes behind an ID3 tag. Layout: Xing's
// header (Xing Technologies) and the "Mp3 Info Tag revision 1" that follows it.
[[nodiscard]] EncoderFacts ReadMp3Facts(const unsigned char* bytes, std::size_t size);
// A file's start. Layout: "WavPack 4 & 5 Binary File / Block Format".
[[nodiscard]] EncoderFacts ReadWavPackFacts(const unsigned char* bytes, std::size_t size);
// As a Monkey's Audio header has them: the version times 1000, and the compression level.
[[nodiscard]] EncoderFacts MonkeysAudioFacts(unsigned version, unsigned level);
// How good audio is that was coded with loss: "High (Lossy)" and so on. `weight` is how many bits of
// MPEG layer 3 one of this coding stands for, in percent.
[[nodiscard]] const wchar_t* LossyQuality(std::int64_t bitsPerSecond, int channels, int weight) noexcept;
