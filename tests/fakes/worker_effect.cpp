// An effect for the worker's tests. Settings: skip=1 (wants no audio), fail=1 (can't begin), gain=N
// (multiplies), hold=1 (keeps all until the end), drop=1 (keeps all for good), top=1 (learns the highest
// sample in a first pass and subtracts it from every sample), tell=1 (adds a tag with a value for each
// 10000 of that).
#define FAKE_EFFECT
#define FAKE_OWN_INSTANCE
#define FAKE_OWN_AUDIO
#include "QuietExports.h"
#include "worker_numbers.h"

#include <algorithm>
#include <vector>

namespace {

struct FakeEffect {
    std::int64_t gain = 1;
    bool holds = false, drops = false, learns = false, tells = false;
    std::uint32_t channels = 0;
    std::int32_t top = 0;
    std::vector<std::int32_t> samples;
    bool isFlushed = false;
    std::vector<unsigned char> tags;
};

FakeEffect& Of(ZtInstance instance) {
    return *static_cast<FakeEffect*>(instance);
}

} // namespace

FAKE_EXPORT ZtInstance DSP_Create(PluginCreateBlock*) {
    return new FakeEffect;
}
FAKE_EXPORT void DSP_Destroy(ZtInstance instance) {
    delete &Of(instance);
}

FAKE_EXPORT std::int32_t DSP_Get(ZtInstance instance, const wchar_t* key, PluginParams* params) {
    FakeEffect& self = Of(instance);
    if (IsText(key, L"Tags") && self.tells) {
        self.tags = OneTag(self.top / 10000);
        params->data = self.tags.data();
        params->dataSize = static_cast<std::uint32_t>(self.tags.size());
        return 1;
    }
    if (IsText(key, L"Information") && self.tells) {
        params->text1 = L"this was learned\nand that";
        return 1;
    }
    params->text1 = L"the fake effect's own words";
    return IsText(key, L"Last Error");
}

FAKE_EXPORT std::int32_t DSP_BeginConversion(ZtInstance instance, DspBeginBlock* block) {
    FakeEffect& self = Of(instance);
    self = FakeEffect{};
    self.gain = NumberOf(block->settings, L"gain", 1);
    self.holds = NumberOf(block->settings, L"hold", 0) != 0;
    self.drops = NumberOf(block->settings, L"drop", 0) != 0;
    self.learns = NumberOf(block->settings, L"top", 0) != 0;
    self.tells = NumberOf(block->settings, L"tell", 0) != 0;
    self.channels = block->format->channels;
    block->wantsNonLive = self.learns;
    if (NumberOf(block->settings, L"fail", 0) != 0)
        return -1;
    return NumberOf(block->settings, L"skip", 0) == 0;
}

FAKE_EXPORT std::int32_t DSP_PassAudioBlock(ZtInstance instance, DspAudioBlock* block) {
    FakeEffect& self = Of(instance);
    const auto* in = static_cast<const std::int32_t*>(block->input);
    const std::size_t count = std::size_t{block->inputFrames} * self.channels;
    if (!self.holds)
        self.samples.clear();
    for (std::size_t i = 0; i < count; ++i)
        self.samples.push_back(static_cast<std::int32_t>(in[i] * self.gain) - self.top);
    block->output = self.samples.data();
    block->outputFrames = self.holds || self.drops ? 0 : block->inputFrames;
    return 1;
}

FAKE_EXPORT std::int32_t DSP_PassNonLive(ZtInstance instance, DspAudioBlock* block) {
    const auto* in = static_cast<const std::int32_t*>(block->input);
    for (std::size_t i = 0; in && i < std::size_t{block->inputFrames} * Of(instance).channels; ++i)
        Of(instance).top = std::max(Of(instance).top, in[i]);
    return 1;
}

FAKE_EXPORT std::int32_t DSP_EndConversion(ZtInstance instance, DspAudioBlock* block) {
    FakeEffect& self = Of(instance);
    if (self.holds && !self.isFlushed) {
        block->output = self.samples.data();
        block->outputFrames = static_cast<std::uint32_t>(self.samples.size() / self.channels);
    }
    self.isFlushed = true;
    return 1;
}

FAKE_EXPORT void DSP_AfterConversion(ZtInstance, std::int32_t) {}
