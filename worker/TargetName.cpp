#include "worker/TargetName.h"

#include "foundation/XPath.h"

#include <initializer_list>

namespace {

constexpr int longestComponent = 255;
constexpr int longestPath = 32760;

bool IsForbidden(wchar_t ch) {
    if (ch < 32)
        return true;
    for (const wchar_t bad : {L'<', L'>', L':', L'"', L'|', L'?', L'*'})
        if (ch == bad)
            return true;
    return false;
}

} // namespace

const wchar_t* TargetPathFault(const XString& path) {
    if (path.Count() > longestPath)
        return L"the path is too long";
    int start = path.StartsWith(L"\\\\?\\") ? 5 : 1;
    if (path.CharAt(start + 1) == L':')
        start += 2;
    if (NameOf(path).IsEmpty())
        return L"it is not the name of a file";
    int length = 0;
    for (int pos = start; pos <= path.Count(); ++pos) {
        const wchar_t ch = path.CharAt(pos);
        if (ch == L'\\' || ch == L'/') {
            length = 0;
            continue;
        }
        if (IsForbidden(ch))
            return L"it holds a character that Windows does not allow in names";
        if (++length > longestComponent)
            return L"a name in it is longer than 255 characters";
    }
    if (NamesDevice(path))
        return L"a name in it, such as CON, NUL or COM1, is one that Windows keeps for a device";
    return nullptr;
}

XString TemporaryTargetPath(const XString& target, std::uint32_t unique, int attempt) {
    XString number;
    number.ToHexShort(unique);
    XString name = XString(L"~tm") + number.Lower();
    if (attempt > 0)
        name += XString(L"-") + DecimalText(attempt);
    const XString folder = target.FindChar(L'\\') == 0 ? XString() : FolderOf(target);
    const XString extension = ExtensionOf(NameOf(target));
    return folder + name + (extension.Equals(L".") ? XString() : extension);
}
