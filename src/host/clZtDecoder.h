// A decoder library and one instance of it.
#pragma once

#include "host/PluginLibrary.h"

class clZtDecoder final : public XDLL {
public:
    ~clZtDecoder() override { Unload(); }
    bool Load(const wchar_t* path) override;

    // Destroys the instance, frees the library, resets pointers and both texts.
    void Unload();
    // Unloads, loads and notes for which extension (with its dot). No instance yet.
    bool LoadFor(const wchar_t* path, const wchar_t* extension);
    // A new instance of the library that is held. True if there is one.
    bool Recreate(PluginCreateBlock* block);
    void DestroyInstance();
    // Empties it first when no library is held.
    [[nodiscard]] const XString& LoadedExtension();

    // Guarded calls; 0 without an instance.
    std::int32_t AskGet(const wchar_t* key, PluginParams& params) const;
    std::int32_t AskOpen(DecoderOpenBlock& block) const;

    XString loadedExtension;
    XString loadedPath;
    ZtInstance instance = nullptr;
    DecoderCreate Create = nullptr;
    DecoderDestroy Destroy = nullptr;
    DecoderGet Get = nullptr;
    DecoderSet Set = nullptr;
    DecoderOpen Open = nullptr;
    DecoderClose Close = nullptr;
    DecoderDecodeBlock DecodeBlock = nullptr;
    DecoderSetPosition SetPosition = nullptr;
    DecoderDeleteATag DeleteATag = nullptr;
};
