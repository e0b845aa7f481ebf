// An encoder or, with FAKE_EFFECT, an effect for the engine's tests.
// Encoder: settings with "single" want one worker, with "triple" have a multiplier of 3, with "needs"
// require the effect Listener. Effect: at the end of a batch it writes what it hears to the file that
// its settings name: number, dataSize, texts 2 and 3, then the image; so it does with the errors before.
#include "QuietExports.h"
#include "contract/Keys.h"

#include <windows.h>

#include <cwchar>

#ifdef FAKE_EFFECT
FAKE_EXPORT std::int32_t DSP_Get(ZtInstance, const wchar_t* key, PluginParams* params) {
    if (!IsText(key, ZtKey::batchEndConversion) && !IsText(key, ZtKey::batchErrors))
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
#else
FAKE_EXPORT std::int32_t ENC_Get(ZtInstance, const wchar_t* key, PluginParams* params) {
    const wchar_t* settings = params->text1;
    if (IsText(key, ZtKey::noMultiCpu))
        return std::wcsstr(settings, L"single") != nullptr;
    if (IsText(key, ZtKey::encodingMultiplier))
        return std::wcsstr(settings, L"triple") ? 3 : 0;
    if (IsText(key, ZtKey::requiresDsp) && std::wcsstr(settings, L"needs")) {
        params->text2 = L"Listener=asked";
        return 1;
    }
    return 0;
}
#endif
