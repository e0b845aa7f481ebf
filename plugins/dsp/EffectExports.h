// Turns a class into the exports of an effect library: ZT_EFFECT_EXPORTS(clMyEffect). The class derives
// from EffectBase, hides those of its operations that it does itself, and has a PanelWindow of its own,
// `panel`.
#pragma once

#include "foundation/XTagList.h"
#include "plugins/common/Exports.h"
#include "plugins/common/Information.h"

// An effect that wants no audio; a caller that passes some all the same gets its frames back.
class EffectBase {
public:
    // Operations answer as the exports do; on failure lastError says why.
    std::int32_t Begin(DspBeginBlock&) { return 0; }
    bool Pass(DspAudioBlock& block) {
        block.output = block.input;
        block.outputFrames = block.inputFrames;
        return true;
    }
    // A first pass over the file, if Begin set wantsNonLive.
    bool PassNonLive(const DspAudioBlock&) { return true; }
    bool ChangeTags(PluginParams&) { return false; } // the key "Tags"
    XString Inform() { return XString(); }           // the key "Information"
    bool End(DspAudioBlock& block) {
        block.output = nullptr;
        block.outputFrames = 0;
        return true;
    }
    void After(bool /*failed*/) {}
    void HearErrors(const PluginParams&) {} // the key "Batch Errors"
    bool EndBatch(const PluginParams&) { return true; }

    XString lastError;
    XString information; // as the last asking found it
};

// An effect whose audio a portable class does, Core. Its Begin(settings, format) answers as the export
// and fits the format to what it will deliver; Pass and End take one block; `error` says what failed.
// A core that may want a first pass has WantsFirstPass, asked after Begin, and FirstPass(block); one that
// may clip has Clipped(), the number of samples.
template <class Core, class Panel>
class StreamEffect : public EffectBase {
public:
    std::int32_t Begin(DspBeginBlock& block) {
        core = Core();
        if (!block.format)
            return -1;
        const std::int32_t answer = Noted(core.Begin(block.settings, *block.format));
        if constexpr (requires { core.WantsFirstPass(); })
            block.wantsNonLive = answer > 0 && core.WantsFirstPass() ? 1 : 0;
        return answer;
    }
    bool PassNonLive(const DspAudioBlock& block) {
        if constexpr (requires { core.FirstPass(block); })
            return Noted(core.FirstPass(block));
        else
            return true;
    }
    bool Pass(DspAudioBlock& block) { return Noted(core.Pass(block)); }
    bool End(DspAudioBlock& block) { return Noted(core.End(block)); }
    XString Inform() {
        if constexpr (requires { core.Clipped(); })
            return ClippedText(core.Clipped());
        else
            return XString();
    }
    void After(bool) { core = Core(); }

    Panel panel;

private:
    template <class Answer>
    Answer Noted(Answer answer) {
        lastError = core.error;
        return answer;
    }

    Core core;
};

template <class Effect>
std::int32_t GetEffectKey(Effect& effect, const wchar_t* key, PluginParams& params) {
    const XString name = key;
    if (name == ZtKey::batchEndConversion) {
        effect.lastError.Clear();
        return effect.EndBatch(params) ? 1 : 0;
    }
    if (name == ZtKey::batchErrors) {
        effect.HearErrors(params);
        return 1;
    }
    if (name == ZtKey::tags)
        return effect.ChangeTags(params) ? 1 : 0;
    if (name == ZtKey::information) {
        effect.information = effect.Inform();
        params.text1 = effect.information;
        return effect.information.IsEmpty() ? 0 : 1;
    }
    if (name == ZtKey::lastError && !effect.lastError.IsEmpty()) {
        params.text1 = effect.lastError;
        return 1;
    }
    return 0;
}

#define ZT_EFFECT_EXPORTS(Effect)                                                                            \
    ZT_EXPORT ZtInstance DSP_Create(PluginCreateBlock*) noexcept {                                           \
        return CreateInstance<Effect>();                                                                     \
    }                                                                                                        \
    ZT_EXPORT void DSP_Destroy(ZtInstance instance) noexcept {                                               \
        delete static_cast<Effect*>(instance);                                                               \
    }                                                                                                        \
    ZT_EXPORT std::int32_t DSP_Get(ZtInstance instance, const wchar_t* key, PluginParams* params) noexcept { \
        return GuardedCall<Effect>(instance, 0, [&](Effect& effect) {                                        \
            return key && params ? GetEffectKey(effect, key, *params) : 0;                                   \
        });                                                                                                  \
    }                                                                                                        \
    ZT_EXPORT std::int32_t DSP_Set(ZtInstance, const wchar_t*, PluginParams*) noexcept {                     \
        return 0;                                                                                            \
    }                                                                                                        \
    ZT_EXPORT void DSP_ShowConfigBit(ZtInstance instance, void* parent, std::int32_t x, std::int32_t y,      \
                                     const wchar_t* settings) noexcept {                                     \
        ShowPanel<Effect>(instance, parent, x, y, settings);                                                 \
    }                                                                                                        \
    ZT_EXPORT const wchar_t* DSP_RemoveConfigBit(ZtInstance instance, void* parent) noexcept {               \
        return RemovePanel<Effect>(instance, parent);                                                        \
    }                                                                                                        \
    ZT_EXPORT std::int32_t DSP_BeginConversion(ZtInstance instance, DspBeginBlock* block) noexcept {         \
        return GuardedCall<Effect>(instance, -1, [&](Effect& effect) -> std::int32_t {                       \
            return block ? effect.Begin(*block) : -1;                                                        \
        });                                                                                                  \
    }                                                                                                        \
    ZT_EXPORT std::int32_t DSP_PassAudioBlock(ZtInstance instance, DspAudioBlock* block) noexcept {          \
        return GuardedCall<Effect>(instance, 0,                                                              \
                                   [&](Effect& effect) { return block && effect.Pass(*block) ? 1 : 0; });    \
    }                                                                                                        \
    ZT_EXPORT std::int32_t DSP_PassNonLive(ZtInstance instance, DspAudioBlock* block) noexcept {             \
        return GuardedCall<Effect>(                                                                          \
            instance, 0, [&](Effect& effect) { return block && effect.PassNonLive(*block) ? 1 : 0; });       \
    }                                                                                                        \
    ZT_EXPORT std::int32_t DSP_EndConversion(ZtInstance instance, DspAudioBlock* block) noexcept {           \
        return GuardedCall<Effect>(instance, 0,                                                              \
                                   [&](Effect& effect) { return block && effect.End(*block) ? 1 : 0; });     \
    }                                                                                                        \
    ZT_EXPORT void DSP_AfterConversion(ZtInstance instance, std::int32_t failed) noexcept {                  \
        GuardedCall<Effect>(instance, 0, [&](Effect& effect) {                                               \
            effect.After(failed != 0);                                                                       \
            return 1;                                                                                        \
        });                                                                                                  \
    }
