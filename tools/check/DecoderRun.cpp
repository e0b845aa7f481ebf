#include "DecoderRun.h"

#include <algorithm>

namespace {
constexpr std::int32_t guardSample = 0x5AC35AC3;
constexpr std::size_t guardSamples = 64; // behind the block
} // namespace

bool DecoderRun::Open(const XString& path, std::uint32_t wanted) {
    block = DecoderOpenBlock{};
    block.path = path;
    block.wanted = wanted;
    isRefused = !checked.report.In(XString(L"Open(\"") + path + L"\", " + DecimalText(wanted) + L")",
                                   [&] { return checked.library.open(instance.value, &block) != 0; });
    return !isRefused;
}

bool DecoderRun::Decode(Sound& sound, std::uint32_t maxFrames, std::uint64_t mostFrames) {
    sound.format = block.format;
    sound.samples.clear();
    const std::size_t wanted = std::size_t{maxFrames} * block.format.channels;
    std::vector<std::int32_t> frames(wanted + guardSamples);
    while (sound.Frames() < mostFrames) {
        std::fill(frames.begin() + static_cast<std::ptrdiff_t>(wanted), frames.end(), guardSample);
        const std::int32_t count =
            checked.report.In(XString(L"DecodeBlock after frame ") + UnsignedText(sound.Frames()), [&] {
                return checked.library.decode(instance.value, frames.data(), maxFrames);
            });
        const XString asked =
            XString(L"DecodeBlock was asked for ") + DecimalText(maxFrames) + L" frames and ";
        if (!checked.report.Demand(count <= static_cast<std::int64_t>(maxFrames),
                                   asked + L"says that it delivered " + DecimalText(count)) ||
            !checked.report.Demand(std::all_of(frames.begin() + static_cast<std::ptrdiff_t>(wanted),
                                               frames.end(),
                                               [](std::int32_t sample) { return sample == guardSample; }),
                                   asked + L"wrote behind the end of the block") ||
            count < 0)
            return false;
        if (count == 0)
            return true;
        sound.samples.insert(sound.samples.end(), frames.begin(),
                             frames.begin() + std::ptrdiff_t{count} * block.format.channels);
    }
    return true;
}

bool DecoderRun::Seek(std::uint64_t frame) {
    return checked.report.In(XString(L"SetPosition(") + UnsignedText(frame) + L")",
                             [&] { return checked.library.seek(instance.value, frame) != 0; });
}

void DecoderRun::Close() {
    checked.report.In(L"Close", [&] { checked.library.close(instance.value); });
}
