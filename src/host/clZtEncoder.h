// An encoder library and one instance of it.
#pragma once

#include "host/PluginLibrary.h"

class clZtEncoder final : public XDLL {
public:
    ~clZtEncoder() override { Unload(); }
    bool Load(const wchar_t* path) override;

    void Unload(); // destroys the instance, frees the library, resets the pointers
    bool Recreate(PluginCreateBlock* block);
    void DestroyInstance();

    // Guarded calls; 0 or no text without an instance.
    std::int32_t AskGet(const wchar_t* key, PluginParams& params) const;
    void ShowConfig(void* parent, std::int32_t x, std::int32_t y, const wchar_t* settings) const; // pixels
    // ztKeepPanel as parent reads the settings of the open panel. A null answer is the empty text.
    [[nodiscard]] XString RemoveConfig(void* parent) const;

    ZtInstance instance = nullptr;
    EncoderCreate ENC_Create = nullptr;
    EncoderDestroy ENC_Destroy = nullptr;
    EncoderGet ENC_Get = nullptr;
    EncoderSet ENC_Set = nullptr;
    EncoderShowConfigBit ENC_ShowConfigBit = nullptr;
    EncoderRemoveConfigBit ENC_RemoveConfigBit = nullptr;
    EncoderBeginConversion ENC_BeginConversion = nullptr;
    EncoderEndConversion ENC_EndConversion = nullptr;
    EncoderEncodeBlock ENC_EncodeBlock = nullptr;
};
