// An encoder or, with FAKE_EFFECT, an effect for the engine's tests.
// Encoder: settings with "single" want one worker, with "triple" have a multiplier of 3, with "needs"
// require the effect Listener. Effect: at the end of a batch it writes what it hears to the file that
// its settings name: number, dataSize, texts 2 and 3, then the image.
#include "contract/Keys.h"
#include "contract/Plugin.h"

#include <windows.h>

#include <cwchar>

#define FAKE_EXPORT extern "C" __declspec(dllexport)
#ifdef FAKE_EFFECT
#define FAKE_NAME(name) DSP_##name
#else
#define FAKE_NAME(name) ENC_##name
#endif

FAKE_EXPORT ZtInstance FAKE_NAME(Create)(PluginCreateBlock* block) {
    return block;
}
FAKE_EXPORT void FAKE_NAME(Destroy)(ZtInstance) {}
FAKE_EXPORT std::int32_t FAKE_NAME(Set)(ZtInstance, const wchar_t*, PluginParams*) {
    return 0;
}
FAKE_EXPORT void FAKE_NAME(ShowConfigBit)(ZtInstance, void*, std::int32_t, std::int32_t, const wchar_t*) {}
FAKE_EXPORT const wchar_t* FAKE_NAME(RemoveConfigBit)(ZtInstance, void*) {
    return L"";
}

#ifdef FAKE_EFFECT
FAKE_EXPORT std::int32_t DSP_Get(ZtInstance, const wchar_t* key, PluginParams* params) {
    if (std::wcscmp(key, ZtKey::batchEndConversion) != 0)
        return 0;
    const HANDLE file =
        CreateFileW(params->text1, FILE_APPEND_DATA, 0, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    const auto write = [&](const void* bytes, std::size_t size) {
        DWORD written = 0;
        WriteFile(file, bytes, static_cast<DWORD>(size), &written, nullptr);
    };
    write(&params->number, sizeof(params->number));
    write(&params->dataSize, sizeof(params->dataSize));
    write(params->text2, std::wcslen(params->text2) * 2);
    write(params->text3, std::wcslen(params->text3) * 2);
    write(params->data, params->dataSize);
    CloseHandle(file);
    return 1;
}
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
#else
FAKE_EXPORT std::int32_t ENC_Get(ZtInstance, const wchar_t* key, PluginParams* params) {
    const wchar_t* settings = params->text1;
    if (std::wcscmp(key, ZtKey::noMultiCpu) == 0)
        return std::wcsstr(settings, L"single") != nullptr;
    if (std::wcscmp(key, ZtKey::encodingMultiplier) == 0)
        return std::wcsstr(settings, L"triple") ? 3 : 0;
    if (std::wcscmp(key, ZtKey::requiresDsp) == 0 && std::wcsstr(settings, L"needs")) {
        params->text2 = L"Listener=asked";
        return 1;
    }
    return 0;
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
#endif
