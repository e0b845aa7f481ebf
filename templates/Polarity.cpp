// Polarity: an effect that turns the sound upside down. A template: copy it, and change what it does.
// It stands alone: Plugin.h is all that it includes of Tonemill.
#include "contract/Plugin.h"

#include <cstring>
#include <vector>

#define EXPORT extern "C" __declspec(dllexport)

struct Polarity { // one instance works on one file at a time
    AudioFormatRecord format{};
    std::vector<std::int32_t> turned; // lives until the next call, as what an effect delivers has to
};

EXPORT ZtInstance DSP_Create(PluginCreateBlock*) { return new Polarity; }
EXPORT void DSP_Destroy(ZtInstance instance) { delete static_cast<Polarity*>(instance); }

// It has no settings, so there is no panel, and nothing to say of itself.
EXPORT std::int32_t DSP_Get(ZtInstance, const wchar_t*, PluginParams*) { return 0; }
EXPORT std::int32_t DSP_Set(ZtInstance, const wchar_t*, PluginParams*) { return 0; }
EXPORT void DSP_ShowConfigBit(ZtInstance, void*, std::int32_t, std::int32_t, const wchar_t*) {}
EXPORT const wchar_t* DSP_RemoveConfigBit(ZtInstance, void*) { return L""; }

EXPORT std::int32_t DSP_BeginConversion(ZtInstance instance, DspBeginBlock* block) {
    // What comes is what goes; an effect with another output would change block->format.
    static_cast<Polarity*>(instance)->format = *block->format;
    return 1;
}

EXPORT std::int32_t DSP_PassAudioBlock(ZtInstance instance, DspAudioBlock* block) {
    Polarity& self = *static_cast<Polarity*>(instance);
    self.turned.resize(std::size_t{block->inputFrames} * self.format.channels);
    if (!self.turned.empty())
        std::memcpy(self.turned.data(), block->input, self.turned.size() * 4);
    const std::int32_t highest =
        static_cast<std::int32_t>((std::uint32_t{1} << (self.format.bitsPerSample - 1)) - 1);
    for (std::int32_t& sample : self.turned) {
        if (self.format.sampleKind == ztSampleFloat)
            sample ^= INT32_MIN; // the sign bit of an IEEE float
        else
            sample = sample < -highest ? highest : -sample; // -32768 has no counterpart
    }
    block->output = self.turned.data();
    block->outputFrames = block->inputFrames;
    return 1;
}

// Nothing is learned beforehand, nothing is held back.
EXPORT std::int32_t DSP_PassNonLive(ZtInstance, DspAudioBlock*) { return 1; }
EXPORT std::int32_t DSP_EndConversion(ZtInstance, DspAudioBlock* block) {
    block->outputFrames = 0;
    return 1;
}
EXPORT void DSP_AfterConversion(ZtInstance, std::int32_t) {}
