// One file through a decoder.
#pragma once

#include "Library.h"
#include "Sound.h"
#include "foundation/XTagList.h"

struct DecoderRun {
    DecoderRun(Checked& checked, Instance& instance) : checked(checked), instance(instance) {}

    bool Open(const XString& path, std::uint32_t wanted);
    // Frames from where the decoder stands to the end, at most maxFrames at a time. False on damage, and
    // for a faulty answer, which is reported.
    bool Decode(Sound& sound, std::uint32_t maxFrames, std::uint64_t mostFrames = ~std::uint64_t{0});
    bool Seek(std::uint64_t frame);
    void Close();

    Checked& checked;
    Instance& instance;
    DecoderOpenBlock block{};
    bool isRefused = false;
};
