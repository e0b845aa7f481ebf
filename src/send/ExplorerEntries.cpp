#include "send/ExplorerEntries.h"

namespace {

bool CanBeKey(const XString& extension) {
    return extension.Count() > 1 && extension.CharAt(1) == L'.' && extension.FindChar(L'\\') == 0;
}

} // namespace

void ClassesWithVerb(const XStringArray& extensions, XStringArray& classes) {
    classes.Clear();
    classes.AddString(classDirectory);
    XStringArray seen;
    for (const XString& extension : extensions) {
        const XString lower = extension.Lower();
        if (!CanBeKey(lower) || seen.Contains(lower, false))
            continue;
        seen.AddString(lower);
        classes.AddString(XString(classAssociations) + L"\\" + lower);
    }
}

XString VerbKey(const wchar_t* className) {
    return XString(className) + L"\\shell\\" + explorerVerb;
}

XString VerbCommand(const XString& programFolder) {
    return L"\"" + programFolder + L"ZtSend.exe\" \"%1\"";
}
