// An encoder of the tests' own for lists: a byte for each millisecond of the source, and for settings
// "double" two; no estimate for a source of one channel. FAKE_EXTENSION is that of its outputs.
#include "contract/Keys.h"
#include "contract/Plugin.h"

#define FAKE_EXPORT extern "C" __declspec(dllexport)

namespace {

int instance = 0;

bool Is(const wchar_t* left, const wchar_t* right) {
    while (*left && *left == *right) {
        ++left;
        ++right;
    }
    return *left == *right;
}

} // namespace

FAKE_EXPORT ZtInstance ENC_Create(PluginCreateBlock*) {
    return &instance;
}
FAKE_EXPORT void ENC_Destroy(ZtInstance) {}
FAKE_EXPORT std::int32_t ENC_Get(ZtInstance, const wchar_t* key, PluginParams* params) {
    if (Is(key, ZtKey::extension)) {
        params->text1 = FAKE_EXTENSION;
        return 1;
    }
    const auto* format = static_cast<const AudioFormatRecord*>(params->data);
    if (!Is(key, ZtKey::estimatedFileSize) || format->channels == 1)
        return 0;
    params->result = params->number * (Is(params->text1, L"double") ? 2 : 1);
    return 1;
}
FAKE_EXPORT std::int32_t ENC_Set(ZtInstance, const wchar_t*, PluginParams*) {
    return 0;
}
FAKE_EXPORT void ENC_ShowConfigBit(ZtInstance, void*, std::int32_t, std::int32_t, const wchar_t*) {}
FAKE_EXPORT const wchar_t* ENC_RemoveConfigBit(ZtInstance, void*) {
    return nullptr;
}
FAKE_EXPORT std::int32_t ENC_BeginConversion(ZtInstance, const EncoderBeginBlock*) {
    return 0;
}
FAKE_EXPORT std::int32_t ENC_EndConversion(ZtInstance, std::int32_t) {
    return 0;
}
FAKE_EXPORT std::int32_t ENC_EncodeBlock(ZtInstance, const void*, std::uint32_t) {
    return 0;
}
