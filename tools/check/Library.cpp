#include "Library.h"

#include "contract/Keys.h"

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr int longestText = 1 << 20; // units

bool IsReadable(const void* address, std::size_t& bytes) {
    MEMORY_BASIC_INFORMATION page{};
    if (VirtualQuery(address, &page, sizeof(page)) == 0 || page.State != MEM_COMMIT ||
        (page.Protect & (PAGE_NOACCESS | PAGE_GUARD)) != 0)
        return false;
    bytes = static_cast<std::size_t>(static_cast<const char*>(page.BaseAddress) + page.RegionSize -
                                     static_cast<const char*>(address));
    return true;
}

// False if memory ends before the text does. Takes no memory before it knows the length: what it took
// might be that of a text which was freed already.
bool CopyText(const wchar_t* text, XString& copy) {
    std::size_t readable = 0;
    for (int length = 0; length < longestText; ++length) {
        if (readable < sizeof(wchar_t) && !IsReadable(text + length, readable))
            return false;
        readable -= sizeof(wchar_t);
        if (text[length] == 0) {
            copy.Assign(text, length + 1);
            return true;
        }
    }
    return false;
}

// Whether a text stays although all memory that is free gets used: what was freed gets written over.
bool OutlivesUseOfMemory(const wchar_t* text, const XString& copy) {
    constexpr int blocks = 64;
    const std::size_t bytes = (static_cast<std::size_t>(copy.Count()) + 1) * sizeof(wchar_t);
    void* taken[2 * blocks];
    for (int i = 0; i < blocks; ++i) {
        taken[2 * i] = std::malloc(bytes);
        taken[2 * i + 1] = HeapAlloc(GetProcessHeap(), 0, bytes);
        for (void* block : {taken[2 * i], taken[2 * i + 1]})
            if (block)
                std::memset(block, 0xE7, bytes);
    }
    const bool isAlive = IsStill(text, copy);
    for (int i = 0; i < blocks; ++i) {
        std::free(taken[2 * i]);
        HeapFree(GetProcessHeap(), 0, taken[2 * i + 1]);
    }
    return isAlive;
}

template <class Function>
void Bind(const Library& library, Function& function, const wchar_t* name, bool& isComplete) {
    std::string narrow;
    const XString full = library.Name(name);
    for (int i = 1; i <= full.Count(); ++i)
        narrow += static_cast<char>(full.CharAt(i));
    function = reinterpret_cast<Function>(
        reinterpret_cast<void*>(GetProcAddress(library.module.Get(), narrow.c_str())));
    isComplete = isComplete && function != nullptr;
}

} // namespace

bool Library::Load(const XString& path, PluginKind kindWanted, XString& reason) {
    kind = kindWanted;
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX | SEM_NOGPFAULTERRORBOX);
    module.Reset(LoadLibraryW(path));
    const DWORD error = GetLastError();
    if (!module.IsValid()) {
        reason = XString(L"the system refuses to load it, with error ") + DecimalText(error);
        if (error == ERROR_MOD_NOT_FOUND)
            reason += L" (a library that it needs is missing)";
        else if (error == ERROR_DLL_INIT_FAILED)
            reason += L" (its DllMain failed)";
        return false;
    }
    bool isComplete = true;
    const auto bind = [&](auto& function, const wchar_t* name) { Bind(*this, function, name, isComplete); };
    bind(create, L"Create");
    bind(destroy, L"Destroy");
    bind(get, L"Get");
    bind(set, L"Set");
    if (kind == PluginKind::decoder) {
        bind(open, L"Open");
        bind(close, L"Close");
        bind(decode, L"DecodeBlock");
        bind(seek, L"SetPosition");
        bind(deleteTag, L"DeleteATag");
    } else {
        bind(showPanel, L"ShowConfigBit");
        bind(removePanel, L"RemoveConfigBit");
    }
    if (kind == PluginKind::encoder) {
        bind(encoderBegin, L"BeginConversion");
        bind(encode, L"EncodeBlock");
        bind(encoderEnd, L"EndConversion");
    } else if (kind == PluginKind::effect) {
        bind(effectBegin, L"BeginConversion");
        bind(pass, L"PassAudioBlock");
        bind(passNonLive, L"PassNonLive");
        bind(effectEnd, L"EndConversion");
        bind(after, L"AfterConversion");
    }
    if (!isComplete)
        reason = L"an export is missing";
    return isComplete;
}

Instance::Instance(Checked& checked) : checked(checked) {
    const XString name = checked.library.Name(L"Create");
    PluginCreateBlock block{};
    value = checked.report.In(name, [&] { return checked.library.create(&block); });
    checked.report.Demand(value != nullptr, name + L" returned null: the plug-in could not be used");
}

void Instance::Destroy() {
    if (value)
        checked.report.In(checked.library.Name(L"Destroy"), [&] { checked.library.destroy(value); });
    value = nullptr;
}

std::int32_t Instance::Ask(const wchar_t* key, PluginParams& params) {
    if (!value)
        return 0;
    const XString name = checked.library.Name(L"Get") + L"(\"" + key + L"\")";
    const std::int32_t answer =
        checked.report.In(name, [&] { return checked.library.get(value, key, &params); });
    checked.report.Demand(checked.report.lastCallMs < momentMs, name + L" took " +
                                                                    DecimalText(checked.report.lastCallMs) +
                                                                    L" ms: the form stands still meanwhile");
    return answer;
}

XString Instance::TextOf(const wchar_t* key) {
    PluginParams params{};
    if (Ask(key, params) == 0)
        return XString();
    return TakeText(checked, checked.library.Name(L"Get") + L"(\"" + key + L"\")", params.text1);
}

XString TakeText(Checked& checked, const XString& subject, const wchar_t* text, bool mayBeNull) {
    if (!text) {
        checked.report.Demand(mayBeNull, subject + L" answered yes and left the text null");
        return XString();
    }
    XString copy;
    if (!CopyText(text, copy)) {
        checked.report.Broken(subject + L" returned a text that can't be read to a terminator");
        return XString();
    }
    checked.report.Demand(OutlivesUseOfMemory(text, copy),
                          subject + L" returned a text that did not live until the next call: keep it in the "
                                    L"instance");
    return copy;
}

bool IsStill(const wchar_t* text, const XString& copy) {
    XString again;
    return CopyText(text, again) && again == copy;
}
