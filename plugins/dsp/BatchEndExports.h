// Turns a class into the exports of an effect library that leaves audio alone and acts at the end of a
// batch: ZT_BATCH_END_EXPORTS(clMyEffect). The class derives from BatchEndEffect and has
//     bool EndBatch(const PluginParams&);   false: lastError says why
//     a PanelWindow of its own, `panel`
#pragma once

#include "foundation/XTagList.h"
#include "plugins/common/Exports.h"

class BatchEndEffect {
public:
    XString lastError; // of the last EndBatch
};

template <class Effect>
std::int32_t BatchEndGetKey(Effect& effect, const wchar_t* key, PluginParams& params) {
    const XString name = key;
    if (name == ZtKey::batchEndConversion) {
        effect.lastError.Clear();
        return effect.EndBatch(params) ? 1 : 0;
    }
    if (name == ZtKey::lastError && !effect.lastError.IsEmpty()) {
        params.text1 = effect.lastError;
        return 1;
    }
    return 0;
}

// BeginConversion wants no audio; a caller that passes some all the same gets its frames back.
#define ZT_BATCH_END_EXPORTS(Effect)                                                                         \
    ZT_EXPORT ZtInstance DSP_Create(PluginCreateBlock*) noexcept {                                           \
        return CreateInstance<Effect>();                                                                     \
    }                                                                                                        \
    ZT_EXPORT void DSP_Destroy(ZtInstance instance) noexcept {                                               \
        delete static_cast<Effect*>(instance);                                                               \
    }                                                                                                        \
    ZT_EXPORT std::int32_t DSP_Get(ZtInstance instance, const wchar_t* key, PluginParams* params) noexcept { \
        return GuardedCall<Effect>(instance, 0, [&](Effect& effect) {                                        \
            return key && params ? BatchEndGetKey(effect, key, *params) : 0;                                 \
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
    ZT_EXPORT std::int32_t DSP_BeginConversion(ZtInstance, DspBeginBlock*) noexcept {                        \
        return 0;                                                                                            \
    }                                                                                                        \
    ZT_EXPORT std::int32_t DSP_PassAudioBlock(ZtInstance, DspAudioBlock* block) noexcept {                   \
        if (!block)                                                                                          \
            return 0;                                                                                        \
        block->output = block->input;                                                                        \
        block->outputFrames = block->inputFrames;                                                            \
        return 1;                                                                                            \
    }                                                                                                        \
    ZT_EXPORT std::int32_t DSP_PassNonLive(ZtInstance, DspAudioBlock*) noexcept {                            \
        return 1;                                                                                            \
    }                                                                                                        \
    ZT_EXPORT std::int32_t DSP_EndConversion(ZtInstance, DspAudioBlock* block) noexcept {                    \
        if (!block)                                                                                          \
            return 0;                                                                                        \
        block->output = nullptr;                                                                             \
        block->outputFrames = 0;                                                                             \
        return 1;                                                                                            \
    }                                                                                                        \
    ZT_EXPORT void DSP_AfterConversion(ZtInstance, std::int32_t) noexcept {}
