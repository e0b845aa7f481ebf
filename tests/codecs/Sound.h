// What the codec tests pass around: interleaved stereo, full scale 1.0, and the bytes of a file.
#pragma once

#include <cstdint>
#include <vector>

using Bytes = std::vector<uint8_t>;

struct Sound {
    int rate = 0; // Hz
    std::vector<float> samples;
};

// Encoders.cpp: the whole sound as a file.
Bytes EncodeVorbis(const Sound& sound);
Bytes EncodeOpus(const Sound& sound); // at 48000 Hz
Bytes EncodeWavPack(const Sound& sound);

// AvFormat.cpp: the sound of the file's first stream, cut as its container says; rate 0 when it does not
// open.
Sound Decode(const Bytes& file);
// By FFmpeg's encoder, into FFmpeg's container; empty when either is missing or fails.
Bytes EncodeByFFmpeg(const Sound& sound, const char* encoder, const char* container);
