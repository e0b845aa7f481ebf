// Cuts silence off both ends, to the frame. Portable.
//
// It delivers as it hears, and holds back only what may have to go: the silence at the start until it
// is long enough, and every later silence until it is known not to be the last one.
#pragma once

#include "plugins/common/PcmFormat.h"

#include <vector>

// Settings: -threshold="DB" -minimum="MS" -keep="MS" -at="both|start|end"
inline constexpr int trimThreshold = 60, trimHighestThreshold = 144; // dB below full scale
inline constexpr int trimLongestMs = 60000;                          // of `minimum` and `keep`, usually 0
inline constexpr const wchar_t* trimPlaceWords[] = {L"both", L"start", L"end"};

class SilenceTrimmer {
public:
    // 1, or -1: `error` says why. The format's length becomes unknown.
    [[nodiscard]] std::int32_t Begin(const wchar_t* settings, AudioFormatRecord& format);
    [[nodiscard]] bool Pass(DspAudioBlock& block);
    // False if there was nothing but silence.
    [[nodiscard]] bool End(DspAudioBlock& block);

    XString error;

private:
    [[nodiscard]] bool IsSilent(const std::uint32_t* frame) const noexcept;
    void TakeSilence(const std::uint32_t* from, std::uint64_t frames);
    void TakeSound(const std::uint32_t* from, std::uint64_t frames);
    void Hold(const std::uint32_t* from, std::uint64_t frames);
    void Deliver(const std::uint32_t* from, std::uint64_t frames);
    void DeliverHeld();
    void DropHeldBut(std::uint64_t frames); // keeps the last ones
    void Show(DspAudioBlock& block) const;
    [[nodiscard]] bool IsLong() const noexcept { return run > 0 && run >= minimum; }

    PcmFormat source;
    std::int64_t integerLimit = 0; // the loudest that counts as silence
    float floatLimit = 0;
    bool cutsStart = true, cutsEnd = true;
    std::uint64_t minimum = 0, keep = 0; // frames

    std::uint64_t run = 0; // frames of the silence that lasts
    bool heardSound = false;
    std::vector<std::uint32_t> held, out; // samples of either kind
};
