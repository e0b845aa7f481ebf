#include "app/PickedFiles.h"

#include "foundation/XPath.h"

namespace {

void AddTerminated(std::vector<wchar_t>& out, const XString& text) {
    out.insert(out.end(), text.Text(), text.Text() + text.StoredLength());
}

const wchar_t* Next(const wchar_t* text) {
    return text + TextLength(text) + 1;
}

bool IsFullPath(const XString& name) {
    return name.StartsWith(L"\\\\") || (name.CharAt(2) == L':' && name.CharAt(3) == L'\\');
}

} // namespace

std::vector<wchar_t> DialogFilterText(const DecoderFilterList& filters) {
    std::vector<wchar_t> text;
    for (const XString& filter : filters) {
        const int cut = filter.FindChar(L'\r');
        AddTerminated(text, cut ? filter.Left(cut - 1) : filter);
        AddTerminated(text, cut ? filter.From(cut + 1) : filter);
    }
    // Without a single pair the text must be empty all the same, and that takes two zeros.
    text.resize(text.size() + (text.empty() ? 2 : 1));
    return text;
}

void ReadPickedFiles(const wchar_t* buffer, XStringArray& paths) {
    if (!*buffer)
        return;
    const wchar_t* name = Next(buffer);
    if (!*name) {
        paths.AddString(buffer);
        return;
    }
    const XString folder = AddBackslash(buffer);
    for (; *name; name = Next(name))
        paths.AddString(IsFullPath(name) ? XString(name) : folder + name);
}
