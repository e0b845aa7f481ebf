// comdlg32 is loaded when it is asked for: the worker loads each plug-in anew for every file. It stays,
// since parts of the shell that the dialog has woken may still work on behind it.
#include "plugins/common/SaveDialog.h"

#include <cderr.h>
#include <commdlg.h>

#include <vector>

namespace {

constexpr int mostPathUnits = 32768;

template <class Pointer>
Pointer Function(HMODULE module, const char* name) noexcept {
    return module ? reinterpret_cast<Pointer>(reinterpret_cast<void*>(GetProcAddress(module, name)))
                  : nullptr;
}

} // namespace

bool AskSavePath(HWND owner, const wchar_t* title, const wchar_t* filter, const wchar_t* extension,
                 XString& path) {
    const HMODULE dialogs = LoadLibraryW(L"comdlg32.dll");
    const auto ask = Function<BOOL(WINAPI*)(OPENFILENAMEW*)>(dialogs, "GetSaveFileNameW");
    const auto reason = Function<DWORD(WINAPI*)()>(dialogs, "CommDlgExtendedError");
    if (!ask || !reason)
        return false;
    std::vector<wchar_t> chosen(mostPathUnits);
    for (int i = 0; i < path.Count() && i < mostPathUnits - 1; ++i)
        chosen[static_cast<std::size_t>(i)] = path.Text()[i];
    OPENFILENAMEW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = GetAncestor(owner, GA_ROOT);
    request.lpstrTitle = title;
    request.lpstrFilter = filter;
    request.lpstrDefExt = extension;
    request.lpstrFile = chosen.data();
    request.nMaxFile = mostPathUnits;
    request.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST;
    if (!ask(&request)) {
        // A text that is no file name is refused without a word: ask again without it.
        chosen[0] = 0;
        if (reason() != FNERR_INVALIDFILENAME || !ask(&request))
            return false;
    }
    path = chosen.data();
    return true;
}
