#include "host/PluginFolders.h"

#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"

namespace {
XString& MovedRoot() {
    static XString root;
    return root;
}
} // namespace

XString PluginRoot() {
    return MovedRoot().IsEmpty() ? ProgramFolder() : MovedRoot();
}

void SetPluginRoot(const wchar_t* folder) {
    MovedRoot() = folder ? AddBackslash(folder) : XString();
}

XString DecoderFolder() {
    return PluginRoot() + L"decoder\\";
}
XString EncoderFolder() {
    return PluginRoot() + L"encoder\\";
}
XString EffectFolder() {
    return PluginRoot() + L"DSPs\\";
}
XString EncoderLibraryPath(const wchar_t* name) {
    return EncoderFolder() + name + L".dll";
}
XString EffectLibraryPath(const wchar_t* name) {
    return EffectFolder() + name + L".dll";
}
