#include "plugins/dsp/TruePeakLimiter.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double lookSeconds = 0.005, releaseSeconds = 0.1;
// A gain that moves shifts peaks a little, and other meters look at other places.
constexpr double margin = 0.9966; // -0.03 dB
} // namespace

void TruePeakLimiter::Box::Open(std::size_t length) {
    last.assign(length, unity);
    at = 0;
    sum = unity * static_cast<Gain>(length);
}

TruePeakLimiter::Gain TruePeakLimiter::Box::Mean(Gain next) {
    sum += next - last[at];
    last[at] = next;
    at = at + 1 == last.size() ? 0 : at + 1;
    return sum / static_cast<Gain>(last.size());
}

void TruePeakLimiter::Open(std::size_t channelCount, std::uint32_t frequency, double limit) {
    channels = channelCount;
    ceiling = limit * margin;
    finder.Open(channels, frequency, ceiling);
    const std::size_t half = static_cast<std::size_t>(std::lround(frequency * lookSeconds / 2));
    first.Open(half + 1);
    second.Open(half + 1);
    look = 2 * half;
    history = std::max(look, TruePeakFinder::before);
    held.assign(history * channels, 0.0f);
    lastPeak = 0;
    frame = 0;
    lows.clear();
    releaseStep = 1 - std::exp(-1 / (frequency * releaseSeconds));
    released = static_cast<double>(unity);
}

TruePeakLimiter::Gain TruePeakLimiter::LowestWithinLook(Gain wanted) {
    while (!lows.empty() && lows.back().gain >= wanted)
        lows.pop_back();
    lows.push_back({frame, wanted});
    if (lows.front().frame + look < frame)
        lows.pop_front();
    return lows.front().gain;
}

// Each gain that goes into a mean is at most what the frame `look` ago wants, and so is the mean.
TruePeakLimiter::Gain TruePeakLimiter::Next(double peak) {
    const Gain wanted =
        peak > ceiling ? static_cast<Gain>(static_cast<double>(unity) * ceiling / peak) : unity;
    const double lowest = static_cast<double>(LowestWithinLook(wanted));
    released = lowest < released ? lowest : released + (lowest - released) * releaseStep;
    if (static_cast<double>(unity) - released < 1000) // -120 dB: arrived
        released = static_cast<double>(unity);
    ++frame;
    return second.Mean(first.Mean(static_cast<Gain>(released)));
}

void TruePeakLimiter::Pass(const float* samples, std::size_t frames, std::vector<float>& out) {
    held.insert(held.end(), samples, samples + frames * channels);
    const std::size_t known = held.size() / channels - history;
    const std::size_t ready = known > TruePeakFinder::after ? known - TruePeakFinder::after : 0;
    peaks.resize(ready);
    finder.Find(held.data() + history * channels, ready, peaks.data());
    for (std::size_t i = 0; i < ready; ++i) {
        const Gain gain = Next(std::max(lastPeak, peaks[i])); // on both sides of a place between frames
        lastPeak = peaks[i];
        if (frame <= look)
            continue; // before the beginning
        const float* const in = held.data() + (history + i - look) * channels;
        const double factor = static_cast<double>(gain) / static_cast<double>(unity);
        for (std::size_t channel = 0; channel < channels; ++channel)
            out.push_back(gain == unity ? in[channel]
                                        : static_cast<float>(static_cast<double>(in[channel]) * factor));
    }
    held.erase(held.begin(), held.begin() + static_cast<std::ptrdiff_t>(ready * channels));
}

void TruePeakLimiter::End(std::vector<float>& out) {
    const std::vector<float> silence((look + TruePeakFinder::after) * channels);
    Pass(silence.data(), look + TruePeakFinder::after, out);
}
