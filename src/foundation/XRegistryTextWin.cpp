// Reads text values that may have been stored without a terminator.
#include "foundation/XRegistryText.h"

#include "foundation/XHandles.h"

XString ReadRegistryText(HKEY root, const wchar_t* subkey, const wchar_t* name) {
    XString text;
    HKEY opened = nullptr;
    if (RegOpenKeyExW(root, subkey, 0, KEY_QUERY_VALUE, &opened) != ERROR_SUCCESS)
        return text;
    const XRegistryKey key(opened);
    DWORD type = 0;
    DWORD bytes = 0;
    if (RegQueryValueExW(key.Get(), name, nullptr, &type, nullptr, &bytes) != ERROR_SUCCESS)
        return text;
    if ((type != REG_SZ && type != REG_EXPAND_SZ) || bytes == 0 || bytes > 0x10000000)
        return text;
    text.SetLength(static_cast<int>(bytes / sizeof(wchar_t)) + 1);
    auto* to = reinterpret_cast<BYTE*>(text.Buffer());
    DWORD taken = bytes; // the value may have changed since; it is never let past the buffer
    if (RegQueryValueExW(key.Get(), name, nullptr, &type, to, &taken) != ERROR_SUCCESS)
        taken = 0;
    text.Buffer()[taken / sizeof(wchar_t)] = 0;
    text.FitLength();
    return text;
}
