#include "plugins/common/RateChanger.h"

#include <soxr.h>

#include <algorithm>

namespace {

constexpr std::size_t roomFrames = 1 << 14; // of the output, for what the engine has held back

soxr_t Engine(void* engine) noexcept {
    return static_cast<soxr_t>(engine);
}

} // namespace

void RateChanger::Closer::operator()(void* engine) const noexcept {
    soxr_delete(Engine(engine));
}

bool RateChanger::Open(int channelCount, std::uint32_t from, std::uint32_t to, RateQuality quality,
                       XString& error) {
    *this = RateChanger();
    channels = static_cast<std::size_t>(channelCount);
    oldRate = from;
    newRate = to;
    const soxr_io_spec_t kind = soxr_io_spec(SOXR_FLOAT64_I, SOXR_FLOAT64_I);
    // A pass band without roll-off, and a clock by which odd pairs of rates don't drift over hours.
    const soxr_quality_spec_t spec = soxr_quality_spec(quality == rateVeryHigh ? SOXR_VHQ : SOXR_HQ,
                                                       SOXR_ROLLOFF_NONE | SOXR_HI_PREC_CLOCK);
    soxr_error_t failure = nullptr;
    engine.reset(soxr_create(from, to, static_cast<unsigned>(channelCount), &failure, &kind, &spec, nullptr));
    if (!engine || failure) {
        error.Format(L"Can't change the rate from %u to %u Hz", from, to);
        return false;
    }
    return true;
}

bool RateChanger::Convert(const double* samples, std::size_t frames, XString& error) {
    outputFrames = 0;
    if (samples) {
        taken += frames;
        if (!Run(samples, frames, error))
            return false;
    } else {
        if (taken > 0 && !Run(nullptr, 0, error)) // silence would come of nothing
            return false;
        const std::uint64_t whole = RateFrames(taken, oldRate, newRate);
        outputFrames = static_cast<std::size_t>(whole > given ? whole - given : 0);
        output.resize(std::max(output.size(), outputFrames * channels));
    }
    given += outputFrames;
    return true;
}

// Gathers all that comes. Behind it `output` is silent, for an end that is rounded up.
bool RateChanger::Run(const double* samples, std::size_t frames, XString& error) {
    for (;;) {
        output.resize((outputFrames + roomFrames) * channels);
        std::size_t read = 0, made = 0;
        if (soxr_process(Engine(engine.get()), samples, frames, &read,
                         output.data() + outputFrames * channels, roomFrames, &made) ||
            (frames > 0 && read + made == 0)) {
            error = L"Changing the rate failed";
            return false;
        }
        outputFrames += made;
        if (samples) {
            samples += read * channels;
            frames -= read;
        }
        if (made < roomFrames && frames == 0)
            break;
    }
    std::fill(output.begin() + static_cast<std::ptrdiff_t>(outputFrames * channels), output.end(), 0.0);
    return true;
}
