#include "host/clZtDSP.h"

namespace {
constexpr std::tuple effectExports{
    XExport{"DSP_Create", &clZtDSP::DSP_Create},
    XExport{"DSP_Destroy", &clZtDSP::DSP_Destroy},
    XExport{"DSP_Get", &clZtDSP::DSP_Get},
    XExport{"DSP_Set", &clZtDSP::DSP_Set},
    XExport{"DSP_ShowConfigBit", &clZtDSP::DSP_ShowConfigBit},
    XExport{"DSP_RemoveConfigBit", &clZtDSP::DSP_RemoveConfigBit},
    XExport{"DSP_BeginConversion", &clZtDSP::DSP_BeginConversion},
    XExport{"DSP_EndConversion", &clZtDSP::DSP_EndConversion},
    XExport{"DSP_PassAudioBlock", &clZtDSP::DSP_PassAudioBlock},
    XExport{"DSP_PassNonLive", &clZtDSP::DSP_PassNonLive},
    XExport{"DSP_AfterConversion", &clZtDSP::DSP_AfterConversion},
};
} // namespace

bool clZtDSP::Load(const wchar_t* path) {
    return BeginLoad(path) ? BindExports(*this, effectExports) : bound;
}

void clZtDSP::DestroyInstance() {
    if (instance && DSP_Destroy)
        DSP_Destroy(instance);
    instance = nullptr;
}

void clZtDSP::Unload() {
    DestroyInstance();
    module.Reset();
    Load(nullptr);
}

bool clZtDSP::Recreate(PluginCreateBlock* block) {
    DestroyInstance();
    if (DSP_Create)
        instance = DSP_Create(block);
    return instance != nullptr;
}

std::int32_t clZtDSP::AskGet(const wchar_t* key, PluginParams& params) const {
    return instance && DSP_Get ? DSP_Get(instance, key, &params) : 0;
}

void clZtDSP::ShowConfig(void* parent, std::int32_t x, std::int32_t y, const wchar_t* settings) const {
    if (instance && DSP_ShowConfigBit)
        DSP_ShowConfigBit(instance, parent, x, y, settings);
}

XString clZtDSP::RemoveConfig(void* parent) const {
    return instance && DSP_RemoveConfigBit ? XString(DSP_RemoveConfigBit(instance, parent)) : XString();
}
