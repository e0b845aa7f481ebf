// An encoder library and one instance of it.
#pragma once

#include "host/PluginLibrary.h"

class clZtEncoder final : public XDLL {
public:
    clZtEncoder() { Load(nullptr); }
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
    EncoderCreate ENC_Create;
    EncoderDestroy ENC_Destroy;
    EncoderGet ENC_Get;
    EncoderSet ENC_Set;
    EncoderShowConfigBit ENC_ShowConfigBit;
    EncoderRemoveConfigBit ENC_RemoveConfigBit;
    EncoderBeginConversion ENC_BeginConversion;
    EncoderEndConversion ENC_EndConversion;
    EncoderEncodeBlock ENC_EncodeBlock;
};
