// Path helpers on text.
#include "foundation/XPath.h"

#include <initializer_list>

XString FolderOf(const XString& path) {
    const int slash = path.ReverseFindChar(L'\\');
    return slash ? path.Left(slash) : path;
}

XString NameOf(const XString& path) {
    const int slash = path.ReverseFindChar(L'\\');
    return slash ? path.From(slash + 1) : path;
}

XString StripExtension(const XString& path) {
    const int dot = path.ReverseFindChar(L'.');
    return dot ? path.Left(dot - 1) : path;
}

XString NameWithoutExtension(const XString& path) {
    return StripExtension(NameOf(path));
}

XString ExtensionOf(const XString& path) {
    const int dot = path.ReverseFindChar(L'.');
    return dot == 0 || dot < path.ReverseFindChar(L'\\') ? XString(L".") : path.From(dot);
}

XString AddBackslash(const XString& path) {
    return path.CharAt(XSTR_END) == L'\\' ? path : path + L"\\";
}

XString StripBackslash(const XString& path) {
    XString stripped(path);
    while (stripped.CharAt(XSTR_END) == L'\\')
        stripped.SetLength(stripped.Count() - 1);
    return stripped;
}

XString Quote(const XString& path) {
    return L"\"" + path + L"\"";
}

int RootEnd(const XString& path) {
    return path.FindChar(L'\\', path.StartsWith(L"\\\\?\\") ? 7 : 3) + 1;
}

void PopLastFolder(XString& out, XString& path) {
    out.Clear();
    const int root = RootEnd(path);
    if (root == 1 || path.Count() <= root - 1)
        return;
    path = StripBackslash(path);
    const int slash = path.ReverseFindChar(L'\\');
    if (slash == 0)
        return;
    out = path.From(slash + 1);
    path.SetLength(slash);
}

XString LongPath(const XString& path, int limit) {
    if (path.StartsWith(L"\\\\") || path.Count() < limit)
        return path;
    return L"\\\\?\\" + path;
}

namespace {

bool IsDeviceNumber(wchar_t ch) {
    return (ch >= L'1' && ch <= L'9') || ch == 0x00B9 || ch == 0x00B2 || ch == 0x00B3; // superscripts, too
}

// Windows opens the device whatever folder and extension the name has.
bool IsDeviceName(const XString& component) {
    const int dot = component.FindChar(L'.');
    XString stem = dot ? component.Left(dot - 1) : component;
    stem.TrimRight();
    for (const wchar_t* device : {L"CON", L"PRN", L"AUX", L"NUL", L"CONIN$", L"CONOUT$"})
        if (stem.EqualsNoCase(device))
            return true;
    const XString port = stem.Left(3);
    return stem.Count() == 4 && IsDeviceNumber(stem.CharAt(4)) &&
           (port.EqualsNoCase(L"COM") || port.EqualsNoCase(L"LPT"));
}

} // namespace

bool NamesDevice(const XString& path) {
    int start = 1;
    for (int pos = 1; pos <= path.Count() + 1; ++pos) {
        const wchar_t ch = path.CharAt(pos);
        if (pos <= path.Count() && ch != L'\\' && ch != L'/')
            continue;
        if (IsDeviceName(path.Mid(start, pos - 1)))
            return true;
        start = pos + 1;
    }
    return false;
}
