// An encoder that lacks most exports, has one under a C++ name and imports a library that is elsewhere;
// with LOST that library.
#include "contract/Plugin.h"

#ifdef LOST
extern "C" __declspec(dllexport) int Lost() {
    return 1;
}
#else
extern "C" __declspec(dllimport) int Lost();
extern "C" __declspec(dllexport) ZtInstance ENC_Create(PluginCreateBlock*) {
    static int here = Lost();
    return &here;
}
__declspec(dllexport) std::int32_t ENC_Get(ZtInstance, const wchar_t*, PluginParams*) {
    return 0;
}
#endif
