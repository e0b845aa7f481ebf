// What the system and the shell know: special folders, the program's place, types and icons.
#include "foundation/XFileSystem.h"

#include "foundation/XPath.h"
#include "foundation/XRegistryText.h"
#include "foundation/XSpecialFolder.h"

#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>

namespace {

constexpr DWORD folderUnits = 260;
constexpr DWORD programUnits = 1000;

XString ShellFolder(int id) {
    wchar_t path[MAX_PATH] = {};
    PIDLIST_ABSOLUTE location = nullptr;
    if (SHGetSpecialFolderLocation(nullptr, id, &location) != S_OK)
        return XString();
    const bool isPath = SHGetPathFromIDListW(location, path);
    CoTaskMemFree(location);
    return isPath ? XString(path) : XString();
}

XString ProgramFilesValue(const wchar_t* name) {
    return ReadRegistryText(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion", name);
}

template <class Ask>
XString AskedPath(Ask ask) {
    wchar_t path[folderUnits] = {};
    const DWORD units = ask(path);
    return units > 0 && units < folderUnits ? XString(path) : XString();
}

XString TemporaryPath() {
    return AskedPath([](wchar_t* path) { return GetTempPathW(folderUnits, path); });
}

XString OwnFolder(int id) {
    switch (id) {
    case folderProgramFiles:
        return ProgramFilesValue(L"ProgramFilesDir");
    case folderWindows:
        return AskedPath([](wchar_t* path) { return GetWindowsDirectoryW(path, folderUnits); });
    case folderSystem:
        return AskedPath([](wchar_t* path) { return GetSystemDirectoryW(path, folderUnits); });
    case folderTemp:
        return TemporaryPath();
    case folderProgramFiles64: {
        const XString folder = ProgramFilesValue(L"ProgramW6432Dir");
        return folder.IsEmpty() ? ProgramFilesValue(L"ProgramFilesDir") : folder;
    }
    default:
        return XString();
    }
}

// Without a backslash of its own where the system gives none; empty if nothing is known.
XString KnownFolder(int id) {
    if (id >= folderProgramFiles)
        return OwnFolder(id);
    XString folder = ShellFolder(id);
    const FolderDerivation* derivation = folder.IsEmpty() ? FindFolderDerivation(id) : nullptr;
    if (!derivation)
        return folder;
    const XString base = ShellFolder(derivation->from);
    return base.IsEmpty() ? base : DeriveFolder(*derivation, AddBackslash(base));
}

XString RegisteredTypeName(const XString& extension) {
    const XString kind = ReadRegistryText(HKEY_CLASSES_ROOT, extension, L"");
    return kind.IsEmpty() ? kind : ReadRegistryText(HKEY_CLASSES_ROOT, kind, L"");
}

bool AskShell(const XString& path, unsigned bits, UINT what, SHFILEINFOW& info) {
    UINT flags = what;
    if (!(bits & shellLargeIcon))
        flags |= SHGFI_SMALLICON;
    if (bits & shellOpenIcon)
        flags |= SHGFI_OPENICON;
    if (!(bits & shellFromDisk))
        flags |= SHGFI_USEFILEATTRIBUTES;
    return SHGetFileInfoW(path, FILE_ATTRIBUTE_NORMAL, &info, sizeof info, flags) != 0;
}

} // namespace

XString GetSpecialFolder(int id, const wchar_t* fallback) {
    const XString folder = KnownFolder(id);
    return FinishFolder(folder.IsEmpty() ? XString(fallback ? fallback : L"C:\\Error") : folder);
}

XString TempFolder() {
    const XString folder = TemporaryPath();
    return AddBackslash(folder.IsEmpty() ? XString(L"C:\\Temp") : folder);
}

XString ProgramPath() {
    wchar_t buffer[programUnits] = {};
    GetModuleFileNameW(nullptr, buffer, programUnits - 1);
    XString path(buffer);
    if (path.CharAt(1) == L'"')
        path.Delete(1, 1);
    const int quote = path.FindChar(L'"');
    return quote ? path.Left(quote - 1) : path;
}

XString ProgramFolder() {
    return FolderOf(ProgramPath());
}

XString FileTypeName(const XString& path) {
    // Long lists of like files are asked for one after another.
    static XString lastExtension;
    static XString lastName;
    const XString extension = ExtensionOf(path);
    if (!lastName.IsEmpty() && lastExtension.EqualsNoCase(extension))
        return lastName;
    const bool isReal = extension.Count() > 1;
    XString name = isReal ? RegisteredTypeName(extension) : XString();
    if (name.IsEmpty())
        name = isReal ? extension.From(2).Lower() + L" File" : XString(L"File");
    lastExtension = extension;
    lastName = name;
    return name;
}

int ShellIconIndex(const XString& path, unsigned bits) {
    SHFILEINFOW info{};
    return AskShell(path, bits, SHGFI_SYSICONINDEX, info) ? info.iIcon : -1;
}

HICON ShellIcon(const XString& path, unsigned bits) {
    SHFILEINFOW info{};
    return AskShell(path, bits, SHGFI_ICON, info) ? info.hIcon : nullptr;
}
