// Feeds a portable effect its audio in blocks of one size and gathers what it delivers.
#pragma once

#include "tests/support/PcmRecord.h"

#include <gtest/gtest.h>

#include <vector>

// Sample is std::int32_t or float. The source is copied block by block, so that the sanitiser sees every
// step outside; an effect that passes over gives the source back.
template <class Effect, class Sample>
std::vector<Sample> Feed(Effect& effect, const wchar_t* settings, AudioFormatRecord format,
                         const std::vector<Sample>& source, std::size_t blockFrames) {
    const std::size_t channels = format.channels;
    const std::int32_t answer = effect.Begin(settings, format);
    if (answer == 0)
        return source;
    EXPECT_EQ(answer, 1);
    std::vector<Sample> out;
    const auto take = [&](const DspAudioBlock& block) {
        const auto* samples = static_cast<const Sample*>(block.output);
        out.insert(out.end(), samples, samples + std::size_t{block.outputFrames} * format.channels);
    };
    for (std::size_t at = 0; at < source.size(); at += blockFrames * channels) {
        const std::size_t end = std::min(source.size(), at + blockFrames * channels);
        const std::vector<Sample> piece(source.begin() + static_cast<std::ptrdiff_t>(at),
                                        source.begin() + static_cast<std::ptrdiff_t>(end));
        DspAudioBlock block{};
        block.input = piece.data();
        block.inputFrames = static_cast<std::uint32_t>(piece.size() / channels);
        EXPECT_TRUE(effect.Pass(block));
        take(block);
    }
    for (;;) {
        DspAudioBlock block{};
        if (!effect.End(block) || block.outputFrames == 0)
            return out;
        take(block);
    }
}
