// An effect library and one instance of it.
#pragma once

#include "host/PluginLibrary.h"

class clZtDSP final : public XDLL {
public:
    ~clZtDSP() override { Unload(); }
    bool Load(const wchar_t* path) override;

    void Unload(); // destroys the instance, frees the library, resets the pointers
    bool Recreate(PluginCreateBlock* block);
    void DestroyInstance();

    // Guarded calls; 0 or no text without an instance.
    std::int32_t AskGet(const wchar_t* key, PluginParams& params) const;
    void ShowConfig(void* parent, std::int32_t x, std::int32_t y, const wchar_t* settings) const; // pixels
    [[nodiscard]] XString RemoveConfig(void* parent) const; // a null answer is the empty text

    ZtInstance instance = nullptr;
    DspCreate DSP_Create = nullptr;
    DspDestroy DSP_Destroy = nullptr;
    DspGet DSP_Get = nullptr;
    DspSet DSP_Set = nullptr;
    DspShowConfigBit DSP_ShowConfigBit = nullptr;
    DspRemoveConfigBit DSP_RemoveConfigBit = nullptr;
    DspBeginConversion DSP_BeginConversion = nullptr;
    DspEndConversion DSP_EndConversion = nullptr;
    DspPassAudioBlock DSP_PassAudioBlock = nullptr;
    DspPassNonLive DSP_PassNonLive = nullptr;
    DspAfterConversion DSP_AfterConversion = nullptr;
};
