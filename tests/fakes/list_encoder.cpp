// An encoder of the tests' own for lists: a byte for each millisecond of the source, and for settings
// "double" two; no estimate for a source of one channel. FAKE_EXTENSION is that of its outputs.
#include "QuietExports.h"
#include "contract/Keys.h"

FAKE_EXPORT std::int32_t ENC_Get(ZtInstance, const wchar_t* key, PluginParams* params) {
    if (IsText(key, ZtKey::extension)) {
        params->text1 = FAKE_EXTENSION;
        return 1;
    }
    const auto* format = static_cast<const AudioFormatRecord*>(params->data);
    if (!IsText(key, ZtKey::estimatedFileSize) || format->channels == 1)
        return 0;
    params->result = params->number * (IsText(params->text1, L"double") ? 2 : 1);
    return 1;
}
