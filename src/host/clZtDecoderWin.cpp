#include "host/clZtDecoder.h"

namespace {
constexpr std::tuple decoderExports{
    XExport{"Create", &clZtDecoder::Create},
    XExport{"Destroy", &clZtDecoder::Destroy},
    XExport{"Get", &clZtDecoder::Get},
    XExport{"Set", &clZtDecoder::Set},
    XExport{"Open", &clZtDecoder::Open},
    XExport{"Close", &clZtDecoder::Close},
    XExport{"DecodeBlock", &clZtDecoder::DecodeBlock},
    XExport{"SetPosition", &clZtDecoder::SetPosition},
    XExport{"DeleteATag", &clZtDecoder::DeleteATag},
};
} // namespace

bool clZtDecoder::Load(const wchar_t* path) {
    return BeginLoad(path) ? BindExports(*this, decoderExports) : bound;
}

void clZtDecoder::DestroyInstance() {
    if (instance && Destroy)
        Destroy(instance);
    instance = nullptr;
}

void clZtDecoder::Unload() {
    DestroyInstance();
    module.Reset();
    Load(nullptr);
    loadedExtension.Clear();
    loadedPath.Clear();
}

bool clZtDecoder::LoadFor(const wchar_t* path, const wchar_t* extension) {
    // Copies first: the arguments may be the very texts that Unload empties.
    const XString newPath = path;
    const XString newExtension = extension;
    Unload();
    if (!Load(newPath))
        return false;
    loadedExtension = newExtension;
    loadedPath = newPath;
    return true;
}

bool clZtDecoder::Recreate(PluginCreateBlock* block) {
    DestroyInstance();
    if (Create)
        instance = Create(block);
    return instance != nullptr;
}

const XString& clZtDecoder::LoadedExtension() {
    if (!module.IsValid())
        loadedExtension.Clear();
    return loadedExtension;
}

std::int32_t clZtDecoder::AskGet(const wchar_t* key, PluginParams& params) const {
    return instance && Get ? Get(instance, key, &params) : 0;
}

std::int32_t clZtDecoder::AskOpen(DecoderOpenBlock& block) const {
    return instance && Open ? Open(instance, &block) : 0;
}
