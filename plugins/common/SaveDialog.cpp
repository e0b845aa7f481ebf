// comdlg32 is loaded when it is asked for: the worker loads each plug-in anew for every file.
#include "plugins/common/SaveDialog.h"

#include "foundation/XHandles.h"

#include <cderr.h>
#include <commdlg.h>

#include <vector>

namespace {
constexpr int mostPathUnits = 32768;
}

bool AskSavePath(HWND owner, const wchar_t* title, const wchar_t* filter, const wchar_t* extension,
                 XString& path) {
    const XModule dialogs(LoadLibraryW(L"comdlg32.dll"));
    using Ask = BOOL(WINAPI*)(OPENFILENAMEW*);
    const auto ask = !dialogs.IsValid() ? nullptr
                                        : reinterpret_cast<Ask>(reinterpret_cast<void*>(
                                              GetProcAddress(dialogs.Get(), "GetSaveFileNameW")));
    if (!ask)
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
        const auto reason = reinterpret_cast<DWORD(WINAPI*)()>(
            reinterpret_cast<void*>(GetProcAddress(dialogs.Get(), "CommDlgExtendedError")));
        if (!reason || reason() != FNERR_INVALIDFILENAME || !ask(&request))
            return false;
    }
    path = chosen.data();
    return true;
}
