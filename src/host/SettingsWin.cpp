#include "host/Settings.h"

#include "foundation/XBuffer.h"

namespace {

struct Root {
    HKEY key = HKEY_CURRENT_USER;
    XString path = L"Software\\Vantrel\\Zephtone";
};

Root& Defaults() {
    static Root root;
    return root;
}

constexpr DWORD longestKeyName = 1040; // characters

// Whether a value stored as `stored` answers a question for `expected`.
bool IsType(DWORD stored, DWORD expected) {
    return stored == expected || (expected == REG_SZ && stored == REG_EXPAND_SZ);
}

XString ChildPath(const wchar_t* parent, const wchar_t* name) {
    XString path = parent;
    if (path.CharAt(path.Count()) != L'\\')
        path += L"\\";
    return path + name;
}

} // namespace

void SetSettingsRoot(HKEY root, const wchar_t* path) {
    Defaults().key = root;
    Defaults().path = path;
}

XString SettingsPath(const wchar_t* subpath) {
    return Defaults().path + (subpath ? subpath : L"");
}

void RegOpen(XRegistryKey& out, REGSAM access, HKEY root, const wchar_t* subkey) {
    out.Reset();
    const wchar_t* path = subkey ? subkey : Defaults().path.Text();
    if (!*path)
        return;
    HKEY opened = nullptr;
    if (RegCreateKeyExW(root ? root : Defaults().key, path, 0, nullptr, REG_OPTION_NON_VOLATILE, access,
                        nullptr, &opened, nullptr) == ERROR_SUCCESS)
        out.Reset(opened);
}

bool RegReadValue(void* buffer, DWORD size, DWORD type, const wchar_t* name, HKEY root, const wchar_t* subkey,
                  bool* failed) {
    XRegistryKey key;
    RegOpen(key, KEY_QUERY_VALUE, root, subkey);
    DWORD stored = REG_NONE;
    DWORD got = size;
    bool good = key.IsValid() && RegQueryValueExW(key.Get(), name, nullptr, &stored,
                                                  static_cast<BYTE*>(buffer), &got) == ERROR_SUCCESS;
    good = good && IsType(stored, type);
    if (!good && buffer)
        ZeroMemory(buffer, size);
    if (failed)
        *failed = !good;
    return good;
}

bool RegWriteValue(const void* data, DWORD size, DWORD type, const wchar_t* name, HKEY root,
                   const wchar_t* subkey) {
    XRegistryKey key;
    RegOpen(key, KEY_WRITE, root, subkey);
    return key.IsValid() &&
           RegSetValueExW(key.Get(), name, 0, type, static_cast<const BYTE*>(data), size) == ERROR_SUCCESS;
}

DWORD RegReadDword(const wchar_t* name, HKEY root, const wchar_t* subkey) {
    DWORD value = 0;
    RegReadValue(&value, sizeof(value), REG_DWORD, name, root, subkey);
    return value;
}

bool RegWriteDword(DWORD value, const wchar_t* name, HKEY root, const wchar_t* subkey) {
    return RegWriteValue(&value, sizeof(value), REG_DWORD, name, root, subkey);
}

XString RegReadString(const wchar_t* name, HKEY root, const wchar_t* subkey, bool* failed) {
    if (failed)
        *failed = true;
    DWORD size = 0;
    {
        XRegistryKey key;
        RegOpen(key, KEY_QUERY_VALUE, root, subkey);
        if (!key.IsValid() ||
            RegQueryValueExW(key.Get(), name, nullptr, nullptr, nullptr, &size) != ERROR_SUCCESS || size == 0)
            return XString();
    }
    // Zeros behind what is read end a text that was stored without its terminator, or with half a unit.
    XBuffer text;
    if (!text.SetSize(std::uint64_t(size) + 3, false, true) ||
        !RegReadValue(text.data, size, REG_SZ, name, root, subkey, failed))
        return XString();
    return XString(static_cast<const wchar_t*>(text.data));
}

bool RegWriteString(const wchar_t* value, const wchar_t* name, HKEY root, const wchar_t* subkey) {
    const DWORD size = static_cast<DWORD>(TextLength(value)) * 2 + 2;
    return RegWriteValue(value ? value : L"", size, REG_SZ, name, root, subkey);
}

bool RegEnumSubkeys(HKEY root, const wchar_t* subkey, XStringArray& out) {
    out.Clear();
    XRegistryKey opened;
    HKEY key = root ? root : Defaults().key;
    if (!subkey || *subkey) {
        RegOpen(opened, KEY_READ, root, subkey);
        key = opened.Get();
    }
    if (!key)
        return false;
    wchar_t name[longestKeyName];
    for (DWORD index = 0;; ++index) {
        DWORD length = longestKeyName;
        if (RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            return true;
        out.AddString(name);
    }
}

void RegDeleteTree(HKEY root, const wchar_t* parent, const wchar_t* name) {
    if (!name || !*name)
        return;
    const XString parentPath = parent ? XString(parent) : SettingsPath();
    const XString full = ChildPath(parentPath, name);
    XStringArray children;
    RegEnumSubkeys(root, full, children);
    for (const XString& child : children)
        RegDeleteTree(root, full, child);
    XRegistryKey key;
    RegOpen(key, KEY_ALL_ACCESS, root, parentPath);
    if (key.IsValid())
        RegDeleteKeyW(key.Get(), name);
}

void WriteFirstRunDefaults() {
    struct Row {
        const wchar_t* key;
        const wchar_t* name;
        DWORD value;
    };
    static constexpr Row rows[] = {
        {L"", Setting::installedDefault, 1},
        {Setting::keyDiscProfile, Setting::albumArtFolder, 1},
        {Setting::keyTagging, Setting::tagDefault, 3},
        {Setting::keyTagging, Setting::tagUnicode, 1},
        {L"", Setting::freqConversion, 1},
    };
    DWORD installed = 0;
    if (RegReadValue(&installed, sizeof(installed), REG_DWORD, Setting::installedDefault))
        return;
    for (const Row& row : rows)
        RegWriteDword(row.value, row.name, nullptr, SettingsPath(row.key));
}
