// Turns any text into a path that the file system takes: characters, components, total length.
#include "naming/OutputPath.h"

#include "foundation/XArray.h"
#include "foundation/XPath.h"

namespace {

struct MappedCharacter {
    wchar_t from, to;
};
constexpr MappedCharacter characterMap[] = {
    {L'"', L'\''}, {L'>', 0x00BB}, {L'<', 0x00AB}, {L'?', 0x00BF},
    {L':', L';'},  {L'/', L'-'},   {L'*', L'-'},   {L'|', L'-'},
};
constexpr wchar_t controlReplacement = L'_';
constexpr wchar_t firstLegal = 31; // characters below it are replaced

constexpr int maximumComponent = 254;
constexpr int maximumPath = 259;
constexpr int shortStem = 61; // below it folders are shortened before the name

wchar_t LegalCharacter(wchar_t ch) {
    for (const MappedCharacter& row : characterMap)
        if (row.from == ch)
            return row.to;
    return ch < firstLegal ? controlReplacement : ch;
}

void MapCharacters(XString& path, int from) {
    for (int i = from; i <= path.Count(); ++i) {
        const wchar_t ch = path.CharAt(i);
        const wchar_t legal = ch == L'\\' ? ch : LegalCharacter(ch);
        if (legal != ch)
            path.SetCharAt(i, legal);
    }
}

void TrimTrailing(XString& text, wchar_t ch) {
    int n = text.Count();
    while (n > 0 && text.CharAt(n) == ch)
        --n;
    text.SetLength(n);
}

void TrimLeading(XString& text, wchar_t ch) {
    int first = 1;
    while (first <= text.Count() && text.CharAt(first) == ch)
        ++first;
    if (first > 1)
        text = text.From(first);
}

void CleanComponent(XString& component, bool isFolder) {
    if (component.Count() > maximumComponent) {
        if (isFolder) {
            component.SetLength(maximumComponent);
        } else {
            const XString extension = ExtensionOf(component);
            const int stem = maximumComponent - extension.Count();
            component = NameWithoutExtension(component).Left(stem < 1 ? 1 : stem) + extension;
        }
    }
    if (isFolder) {
        TrimTrailing(component, L' ');
        TrimTrailing(component, L'.');
    }
    TrimTrailing(component, L' ');
    TrimLeading(component, L'.');
}

// Shortens the innermost folder while the name is short, so that the name stays whole.
void EnforceLength(XString& path) {
    while (path.Count() > maximumPath) {
        const int lastSlash = path.ReverseFindChar(L'\\');
        const int root = RootEnd(path);
        if (lastSlash == 0 || root == 1)
            return;
        int dot = path.ReverseFindChar(L'.');
        if (dot == 0 || dot < lastSlash)
            dot = path.Count();
        const int stem = dot - lastSlash - 1;
        if (lastSlash != root - 1 && stem < shortStem)
            path.Delete(lastSlash - 1, lastSlash - 1);
        else if (stem == 1)
            return;
        else
            path.Delete(dot - 1, dot - 1);
    }
}

void TidySeparators(XString& path) {
    for (int i = RootEnd(path); i <= path.Count();) {
        if (path.CharAt(i) == L'\\' && i > 1 && path.CharAt(i - 1) == L'\\')
            path.Delete(i, i);
        else
            ++i;
    }
    while (path.Find(L".\\") > 0)
        path.Replace(L".\\", L"\\");
    while (path.Find(L" \\") > 0)
        path.Replace(L" \\", L"\\");
}

} // namespace

void CleanPath(XString& path, bool enforceLimit, bool hasRoot) {
    const int root = hasRoot ? RootEnd(path) : 1;
    MapCharacters(path, root);

    XStringArray components; // innermost first
    XString component;
    for (PopLastFolder(component, path); !component.IsEmpty(); PopLastFolder(component, path))
        components.AddString(component);
    path = AddBackslash(path);
    for (std::int64_t i = components.Count() - 1; i >= 0; --i) {
        const bool isFolder = i > 0;
        CleanComponent(components[i], isFolder);
        path.Extend(components[i]);
        if (isFolder)
            path.Extend(L"\\");
    }

    if (enforceLimit) {
        EnforceLength(path);
        TidySeparators(path);
    }
    if (path.Count() > root && path.CharAt(path.Count()) == L'\\')
        path.SetLength(path.Count() - 1);
}
