#include "send/Registration.h"

#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"
#include "host/DecoderCatalogue.h"
#include "host/Settings.h"
#include "send/ExplorerEntries.h"
#include "send/SendText.h"

#include <shlobj.h>

namespace {

constexpr wchar_t sendProgram[] = L"ZtSend.exe";

class clComScope {
public:
    clComScope() : isInitialised(SUCCEEDED(CoInitialize(nullptr))) {}
    ~clComScope() {
        if (isInitialised)
            CoUninitialize();
    }
    clComScope(const clComScope&) = delete;
    clComScope& operator=(const clComScope&) = delete;

private:
    bool isInitialised;
};

// The settings' own reading makes the keys that it looks at; none may stay behind here.
XRegistryKey OpenExisting(const XString& path) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, KEY_READ, &key) != ERROR_SUCCESS)
        key = nullptr;
    return XRegistryKey(key);
}

XString ClassPath(const clExplorerPlaces& places, const XString& below) {
    return places.classes + L"\\" + below;
}

// ---- The verbs ---------------------------------------------------------------------------------

bool WriteVerb(const clExplorerPlaces& places, const XString& className) {
    const XString key = ClassPath(places, VerbKey(className));
    const auto write = [](const XString& path, const wchar_t* name, const XString& value) {
        return RegWriteString(value, name, HKEY_CURRENT_USER, path);
    };
    return write(key, L"", explorerText) && write(key, L"Icon", places.programs + L"Tonemill.exe,0") &&
           write(key, L"MultiSelectModel", L"Player") && // up to 100 files
           write(key + L"\\command", L"", VerbCommand(places.programs));
}

bool DeleteIfEmpty(const XString& path) {
    DWORD keys = 0, values = 0;
    {
        const XRegistryKey key = OpenExisting(path);
        if (!key.IsValid() || RegQueryInfoKeyW(key.Get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr,
                                               &values, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            return false;
    }
    return keys == 0 && values == 0 && RegDeleteKeyW(HKEY_CURRENT_USER, path) == ERROR_SUCCESS;
}

enum clWhose { ofAnyCopy, notOfOthers };

// Another copy of the program that is still there.
bool IsOther(const clExplorerPlaces& places, const XString& program) {
    return !program.EqualsNoCase(places.programs + sendProgram) && IsFile(program);
}

XString VerbTarget(const XString& verbKey) {
    const XString command = verbKey + L"\\command";
    if (!OpenExisting(command).IsValid())
        return XString();
    XStringArray words;
    SplitPaths(RegReadString(L"", HKEY_CURRENT_USER, command), words);
    return words.IsEmpty() ? XString() : words[0];
}

// True if the class has no verb afterwards that had to go.
bool RemoveVerb(const clExplorerPlaces& places, const XString& className, clWhose whose) {
    const XString key = ClassPath(places, VerbKey(className));
    if (!OpenExisting(key).IsValid() || (whose == notOfOthers && IsOther(places, VerbTarget(key))))
        return true;
    XString path = StripBackslash(FolderOf(key));
    RegDeleteTree(HKEY_CURRENT_USER, path, explorerVerb);
    const bool isGone = !OpenExisting(key).IsValid();
    while (path.Count() > places.classes.Count() && DeleteIfEmpty(path))
        path = StripBackslash(FolderOf(path));
    return isGone;
}

bool RemoveVerbs(const clExplorerPlaces& places, clWhose whose) {
    XStringArray classes;
    classes.AddString(classDirectory);
    XStringArray extensions;
    const XString associations = ClassPath(places, classAssociations);
    if (OpenExisting(associations).IsValid())
        RegEnumSubkeys(HKEY_CURRENT_USER, associations, extensions);
    for (const XString& extension : extensions)
        classes.AddString(XString(classAssociations) + L"\\" + extension);
    bool areGone = true;
    for (const XString& className : classes)
        areGone = RemoveVerb(places, className, whose) && areGone;
    return areGone;
}

// ---- The shortcut of "Send to" -------------------------------------------------------------------

bool MakeLink(IShellLinkW*& link, XCom<IShellLinkW>& owner, XCom<IPersistFile>& file) {
    if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                                owner.Receive())))
        return false;
    link = owner.Get();
    return SUCCEEDED(link->QueryInterface(IID_IPersistFile, file.Receive()));
}

bool WriteShortcut(const clExplorerPlaces& places) {
    const clComScope com;
    XCom<IShellLinkW> owner;
    XCom<IPersistFile> file;
    IShellLinkW* link = nullptr;
    return MakeLink(link, owner, file) && SUCCEEDED(link->SetPath(places.programs + sendProgram)) &&
           SUCCEEDED(link->SetIconLocation(places.programs + L"Tonemill.exe", 0)) &&
           SUCCEEDED(link->SetDescription(explorerText)) &&
           SUCCEEDED(file->Save(places.sendTo + sendToName, TRUE));
}

XString ShortcutTarget(const XString& path) {
    const clComScope com;
    XCom<IShellLinkW> owner;
    XCom<IPersistFile> file;
    IShellLinkW* link = nullptr;
    wchar_t target[MAX_PATH] = L"";
    if (!MakeLink(link, owner, file) || FAILED(file->Load(path, STGM_READ)) ||
        FAILED(link->GetPath(target, MAX_PATH, nullptr, SLGP_RAWPATH)))
        return XString();
    return target;
}

// A shortcut of that name that leads elsewhere is the user's.
bool RemoveShortcut(const clExplorerPlaces& places, clWhose whose) {
    const XString path = places.sendTo + sendToName;
    if (!IsFile(path))
        return true;
    const XString target = ShortcutTarget(path);
    if (!NameOf(target).EqualsNoCase(sendProgram) || (whose == notOfOthers && IsOther(places, target)))
        return true;
    return DeleteOneFile(path);
}

bool RemoveAll(const clExplorerPlaces& places, clWhose whose) {
    const bool noVerbs = RemoveVerbs(places, whose);
    return RemoveShortcut(places, whose) && noVerbs;
}

void TellExplorer() {
    SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr);
}

} // namespace

clExplorerPlaces UsualExplorerPlaces() {
    return {L"Software\\Classes", GetSpecialFolder(CSIDL_SENDTO), ProgramFolder()};
}

bool RegisterEntries(const clExplorerPlaces& places, const XStringArray& extensions) {
    bool good = RemoveAll(places, ofAnyCopy);
    XStringArray classes;
    ClassesWithVerb(extensions, classes);
    for (const XString& className : classes)
        good = WriteVerb(places, className) && good;
    good = WriteShortcut(places) && good;
    TellExplorer();
    return good;
}

bool RegisterEntries(const clExplorerPlaces& places) {
    XStringArray extensions;
    EnumerateDecoders(false, &extensions, nullptr);
    return RegisterEntries(places, extensions);
}

bool UnregisterEntries(const clExplorerPlaces& places) {
    const bool good = RemoveAll(places, notOfOthers);
    TellExplorer();
    return good;
}

bool AreEntriesRegistered(const clExplorerPlaces& places) {
    const XString command = ClassPath(places, VerbKey(classDirectory) + L"\\command");
    return OpenExisting(command).IsValid() &&
           RegReadString(L"", HKEY_CURRENT_USER, command).EqualsNoCase(VerbCommand(places.programs));
}
