#include "Sound.h"

#include "worker/AudioText.h"

#include <cmath>
#include <cstring>

namespace {
constexpr double twoPi = 6.283185307179586;
constexpr double loudest = 0.6, step = 0.7; // channels are 3 dB apart
constexpr double lowestHertz = 80, hertzStep = 10;
// WAVEFORMATEXTENSIBLE's speaker bits of the usual layouts, by the number of channels.
constexpr std::uint32_t usualMasks[] = {0, 0x4, 0x3, 0x7, 0x33, 0x37, 0x3F};
} // namespace

AudioFormatRecord SoundFormat(bool isFloat, int bits, int channels, std::uint32_t frequency) {
    AudioFormatRecord format{};
    format.sampleKind = isFloat ? ztSampleFloat : ztSampleInteger;
    format.channels = static_cast<std::uint16_t>(channels);
    format.frequency = frequency;
    format.channelMask = channels <= 6 ? usualMasks[channels] : 0;
    format.sampleBytes = 4;
    format.bitsPerSample = static_cast<std::uint16_t>(isFloat ? 32 : bits);
    format.flags = ztFormatLossless | ztFormatExactLength;
    return format;
}

Sound MakeSound(const AudioFormatRecord& format, std::uint32_t milliseconds) {
    Sound sound;
    sound.format = format;
    const std::uint64_t frames = std::uint64_t{format.frequency} * milliseconds / 1000;
    sound.format.frameCount = frames;
    sound.format.lengthMs = FramesToMs(frames, format.frequency);
    sound.samples.resize(frames * format.channels);
    const double full = static_cast<double>(std::int64_t{1} << (format.bitsPerSample - 1));
    for (std::uint64_t i = 0; i < sound.samples.size(); ++i) {
        const int channel = static_cast<int>(i % format.channels);
        const double turns =
            (lowestHertz + hertzStep * channel) * static_cast<double>(i / format.channels) / format.frequency;
        const double value = loudest * std::pow(step, channel) * std::sin(twoPi * turns);
        if (format.sampleKind == ztSampleFloat) {
            const float narrow = static_cast<float>(value);
            std::memcpy(&sound.samples[i], &narrow, sizeof(narrow));
        } else {
            sound.samples[i] = static_cast<std::int32_t>(std::lround(value * (full - 1)));
        }
    }
    return sound;
}

double LevelOf(const Sound& sound, int channel) {
    const double full = static_cast<double>(std::int64_t{1} << (sound.format.bitsPerSample - 1));
    double sum = 0;
    for (std::uint64_t i = static_cast<std::uint64_t>(channel); i < sound.samples.size();
         i += sound.format.channels) {
        float real = 0;
        std::memcpy(&real, &sound.samples[i], sizeof(real));
        const double value =
            sound.format.sampleKind == ztSampleFloat ? static_cast<double>(real) : sound.samples[i] / full;
        sum += value * value;
    }
    const std::uint64_t frames = sound.Frames();
    return frames == 0 ? 0 : std::sqrt(sum / static_cast<double>(frames));
}
