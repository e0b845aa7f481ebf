// The exports of an encoder or, with FAKE_EFFECT, an effect of the tests' own that do nothing. Who has
// own ones defines FAKE_OWN_INSTANCE (Create, Destroy), FAKE_OWN_PANEL or FAKE_OWN_AUDIO first.
#pragma once

#include "FakeExport.h"

#ifdef FAKE_EFFECT
#define FAKE_NAME(name) DSP_##name
#else
#define FAKE_NAME(name) ENC_##name
#endif

#ifndef FAKE_OWN_INSTANCE
FAKE_EXPORT ZtInstance FAKE_NAME(Create)(PluginCreateBlock*) {
    static int instance = 0;
    return &instance;
}
FAKE_EXPORT void FAKE_NAME(Destroy)(ZtInstance) {}
#endif

FAKE_EXPORT std::int32_t FAKE_NAME(Set)(ZtInstance, const wchar_t*, PluginParams*) {
    return 0;
}

#ifndef FAKE_OWN_PANEL
FAKE_EXPORT void FAKE_NAME(ShowConfigBit)(ZtInstance, void*, std::int32_t, std::int32_t, const wchar_t*) {}
FAKE_EXPORT const wchar_t* FAKE_NAME(RemoveConfigBit)(ZtInstance, void*) {
    return L"";
}
#endif

#if !defined(FAKE_OWN_AUDIO) && defined(FAKE_EFFECT)
FAKE_EXPORT std::int32_t DSP_BeginConversion(ZtInstance, DspBeginBlock*) {
    return 0;
}
FAKE_EXPORT std::int32_t DSP_EndConversion(ZtInstance, DspAudioBlock*) {
    return 0;
}
FAKE_EXPORT std::int32_t DSP_PassAudioBlock(ZtInstance, DspAudioBlock*) {
    return 0;
}
FAKE_EXPORT std::int32_t DSP_PassNonLive(ZtInstance, DspAudioBlock*) {
    return 0;
}
FAKE_EXPORT void DSP_AfterConversion(ZtInstance, std::int32_t) {}
#elif !defined(FAKE_OWN_AUDIO)
FAKE_EXPORT std::int32_t ENC_BeginConversion(ZtInstance, const EncoderBeginBlock*) {
    return 0;
}
FAKE_EXPORT std::int32_t ENC_EndConversion(ZtInstance, std::int32_t) {
    return 0;
}
FAKE_EXPORT std::int32_t ENC_EncodeBlock(ZtInstance, const void*, std::uint32_t) {
    return 0;
}
#endif
