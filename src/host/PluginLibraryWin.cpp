#include "host/PluginLibrary.h"

XDLL::~XDLL() = default;

bool XDLL::BeginLoad(const wchar_t* path) {
    if (module.IsValid())
        return false;
    bound = true;
    if (path) {
        // A library with a missing import is passed over like any other bad one, without a box.
        DWORD oldMode = 0;
        SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &oldMode);
        module.Reset(LoadLibraryW(path));
        SetThreadErrorMode(oldMode, nullptr);
        bound = module.IsValid();
    }
    return true;
}

void* XDLL::ExportAddress(const char* name) const noexcept {
    return module.IsValid() ? reinterpret_cast<void*>(GetProcAddress(module.Get(), name)) : nullptr;
}
