// The table of named folders and the search in both directions.
#include "naming/NamedFolders.h"

#include "foundation/XPath.h"
#include "naming/OutputPath.h"

namespace {

struct NamedFolder {
    int id; // CSIDL or SpecialFolder
    const wchar_t* name;
    const wchar_t* olderName; // before Windows Vista
};
constexpr NamedFolder table[] = {
    {13, L"Music", L"My Documents\\My Music"},
    {39, L"Pictures", L"My Documents\\My Pictures"},
    {14, L"Video", L"My Documents\\My Video"},
    {5, L"Documents", L"My Documents"},
    {53, L"Public Music", L"Shared Documents\\Shared Music"},
    {54, L"Public Pictures", L"Shared Documents\\Shared Pictures"},
    {55, L"Public Video", L"Shared Documents\\Shared Video"},
    {46, L"Public Documents", L"Shared Documents"},
    {16, L"Desktop", L"Desktop"},
    {0x5003, L"[Temporary Folder]", L"[Temporary Folder]"},
};

const wchar_t* NameOfRow(const NamedFolder& row, bool newNames) {
    return newNames ? row.name : row.olderName;
}

bool NamesFolder(const XString& text, const wchar_t* name) {
    const int length = TextLength(name);
    if (text.Count() < length || text.Count() < 2 || !text.StartsWith(name))
        return false;
    return text.Count() == length || text.CharAt(length + 1) == L'\\';
}

// "Data (D:)"
bool IsLabelledDrive(const XString& text) {
    const int n = text.Count();
    return n >= 5 && text.FindChar(L'\\') == 0 && text.CharAt(n) == L')' && text.CharAt(n - 1) == L':' &&
           text.CharAt(n - 3) == L'(';
}

XString LabelledDrive(const XString& root) {
    const XString label = VolumeLabel(root);
    return label.IsEmpty() ? XString() : label + L" (" + root.Left(2).Upper() + L")";
}

} // namespace

void NamedFolders(XStringArray& paths, XStringArray& names) {
    const bool newNames = HasNewFolderNames();
    for (const NamedFolder& row : table) {
        paths.AddString(NamedFolderPath(row.id));
        names.AddString(NameOfRow(row, newNames));
    }
}

XString ResolveFolderName(const XString& text) {
    const bool newNames = HasNewFolderNames();
    for (const NamedFolder& row : table) {
        const wchar_t* name = NameOfRow(row, newNames);
        if (!NamesFolder(text, name))
            continue;
        XString path = NamedFolderPath(row.id) + text.From(TextLength(name) + 1);
        CleanPath(path, false, true);
        return path;
    }
    if (IsLabelledDrive(text)) {
        XString drive = text.Mid(text.Count() - 2, text.Count() - 2);
        drive += L":\\";
        return drive;
    }
    return text;
}

XString FolderDisplayName(const XString& path, bool isFile) {
    const XString work = isFile ? path : AddBackslash(path);
    XStringArray paths;
    XStringArray names;
    NamedFolders(paths, names);
    for (std::int64_t i = 0; i < paths.Count(); ++i) {
        const int length = paths[i].Count();
        if (work.Count() < length || work.Count() < 2 || !work.Left(length).EqualsNoCase(paths[i]))
            continue;
        const XString rest = work.From(length);
        return rest.Count() > 1 ? names[i] + rest : XString(names[i]);
    }
    const bool isDrive = work.Count() == 2 || work.Count() == 3;
    if (isDrive && work.CharAt(1) != L'\\' && work.CharAt(1) != L'/') {
        XString labelled = LabelledDrive(work);
        if (!labelled.IsEmpty())
            return labelled;
    }
    return path;
}
