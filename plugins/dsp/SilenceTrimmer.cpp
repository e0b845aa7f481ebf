#include "plugins/dsp/SilenceTrimmer.h"

#include "plugins/common/Settings.h"
#include "plugins/dsp/FloatBridge.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace {

constexpr SettingsOption options[] = {
    {L"threshold", L"", 1, trimHighestThreshold},
    {L"minimum", L"", 0, trimLongestMs},
    {L"keep", L"", 0, trimLongestMs},
    {L"at", L"both|start|end"},
};

// What is held of a long silence at the start may grow by this before it is cut again.
constexpr std::uint64_t slackFrames = 16384;

} // namespace

std::int32_t SilenceTrimmer::Begin(const wchar_t* text, AudioFormatRecord& format) {
    Settings settings;
    if (!settings.Parse(text, options, error) || !ReadFormat(&format, source, error))
        return -1;
    const double limit =
        std::pow(10.0, -static_cast<double>(settings.Number(L"threshold", trimThreshold)) / 20);
    floatLimit = static_cast<float>(limit);
    integerLimit = static_cast<std::int64_t>(limit * std::ldexp(1.0, source.bits - 1));
    const XString place = settings.Word(L"at", trimPlaceWords[0]);
    cutsStart = !place.EqualsNoCase(trimPlaceWords[2]);
    cutsEnd = !place.EqualsNoCase(trimPlaceWords[1]);
    minimum = MsToFrames(static_cast<std::uint64_t>(settings.Number(L"minimum", 0)), source.frequency);
    keep = MsToFrames(static_cast<std::uint64_t>(settings.Number(L"keep", 0)), source.frequency);
    format.frameCount = 0;
    format.lengthMs = 0;
    format.flags &= ~static_cast<std::uint32_t>(ztFormatExactLength);
    return 1;
}

bool SilenceTrimmer::IsSilent(const std::uint32_t* frame) const noexcept {
    for (int channel = 0; channel < source.channels; ++channel) {
        if (source.isFloat) {
            if (!(std::fabs(std::bit_cast<float>(frame[channel])) <= floatLimit)) // nor is "not a number"
                return false;
        } else if (std::abs(std::int64_t{static_cast<std::int32_t>(frame[channel])}) > integerLimit) {
            return false;
        }
    }
    return true;
}

void SilenceTrimmer::Hold(const std::uint32_t* from, std::uint64_t frames) {
    held.insert(held.end(), from, from + frames * static_cast<std::uint64_t>(source.channels));
}

void SilenceTrimmer::Deliver(const std::uint32_t* from, std::uint64_t frames) {
    out.insert(out.end(), from, from + frames * static_cast<std::uint64_t>(source.channels));
}

void SilenceTrimmer::DeliverHeld() {
    if (out.empty())
        out.swap(held);
    else
        out.insert(out.end(), held.begin(), held.end());
    held.clear();
}

void SilenceTrimmer::DropHeldBut(std::uint64_t frames) {
    const std::uint64_t kept = frames * static_cast<std::uint64_t>(source.channels);
    if (held.size() > kept)
        held.erase(held.begin(), held.end() - static_cast<std::ptrdiff_t>(kept));
}

void SilenceTrimmer::TakeSilence(const std::uint32_t* from, std::uint64_t frames) {
    const std::uint64_t before = run;
    run += frames;
    if (!heardSound && cutsStart) {
        Hold(from, frames);
        if (IsLong() && held.size() > (keep + slackFrames) * static_cast<std::uint64_t>(source.channels))
            DropHeldBut(keep);
        return;
    }
    // What stays behind the last sound is delivered at once.
    const std::uint64_t kept = !cutsEnd ? frames : before >= keep ? 0 : std::min(frames, keep - before);
    Deliver(from, kept);
    Hold(from + kept * static_cast<std::uint64_t>(source.channels), frames - kept);
}

void SilenceTrimmer::TakeSound(const std::uint32_t* from, std::uint64_t frames) {
    if (!heardSound && cutsStart && IsLong())
        DropHeldBut(keep);
    DeliverHeld();
    heardSound = true;
    run = 0;
    Deliver(from, frames);
}

void SilenceTrimmer::Show(DspAudioBlock& block) const {
    block.output = out.data();
    block.outputFrames = static_cast<std::uint32_t>(out.size() / static_cast<std::size_t>(source.channels));
}

bool SilenceTrimmer::Pass(DspAudioBlock& block) {
    out.clear();
    const std::size_t channels = static_cast<std::size_t>(source.channels);
    const auto* at = static_cast<const std::uint32_t*>(block.input);
    const std::uint32_t* const end = at + block.inputFrames * channels;
    while (at != end) {
        const bool silent = IsSilent(at);
        const std::uint32_t* from = at;
        do
            at += channels;
        while (at != end && IsSilent(at) == silent);
        const std::uint64_t frames = static_cast<std::uint64_t>(at - from) / channels;
        silent ? TakeSilence(from, frames) : TakeSound(from, frames);
    }
    Show(block);
    return true;
}

bool SilenceTrimmer::End(DspAudioBlock& block) {
    out.clear();
    if (!heardSound && IsLong()) {
        error = L"there is nothing but silence, and no audio would be left";
        return false;
    }
    if (heardSound && cutsEnd && IsLong())
        held.clear();
    DeliverHeld();
    run = 0;
    Show(block);
    return true;
}
