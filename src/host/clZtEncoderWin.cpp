#include "host/clZtEncoder.h"

namespace {
constexpr std::tuple encoderExports{
    XExport{"ENC_Create", &clZtEncoder::ENC_Create},
    XExport{"ENC_Destroy", &clZtEncoder::ENC_Destroy},
    XExport{"ENC_Get", &clZtEncoder::ENC_Get},
    XExport{"ENC_Set", &clZtEncoder::ENC_Set},
    XExport{"ENC_ShowConfigBit", &clZtEncoder::ENC_ShowConfigBit},
    XExport{"ENC_RemoveConfigBit", &clZtEncoder::ENC_RemoveConfigBit},
    XExport{"ENC_BeginConversion", &clZtEncoder::ENC_BeginConversion},
    XExport{"ENC_EndConversion", &clZtEncoder::ENC_EndConversion},
    XExport{"ENC_EncodeBlock", &clZtEncoder::ENC_EncodeBlock},
};
} // namespace

bool clZtEncoder::Load(const wchar_t* path) {
    return BeginLoad(path) ? BindExports(*this, encoderExports) : bound;
}

void clZtEncoder::DestroyInstance() {
    if (instance && ENC_Destroy)
        ENC_Destroy(instance);
    instance = nullptr;
}

void clZtEncoder::Unload() {
    DestroyInstance();
    module.Reset();
    Load(nullptr);
}

bool clZtEncoder::Recreate(PluginCreateBlock* block) {
    DestroyInstance();
    if (ENC_Create)
        instance = ENC_Create(block);
    return instance != nullptr;
}

std::int32_t clZtEncoder::AskGet(const wchar_t* key, PluginParams& params) const {
    return instance && ENC_Get ? ENC_Get(instance, key, &params) : 0;
}

void clZtEncoder::ShowConfig(void* parent, std::int32_t x, std::int32_t y, const wchar_t* settings) const {
    if (instance && ENC_ShowConfigBit)
        ENC_ShowConfigBit(instance, parent, x, y, settings);
}

XString clZtEncoder::RemoveConfig(void* parent) const {
    return instance && ENC_RemoveConfigBit ? XString(ENC_RemoveConfigBit(instance, parent)) : XString();
}
