#include "host/DecoderFilter.h"

namespace {

// "*.a;*.b" of the extensions that are marked for the group, in the order of the sorted list.
void AppendPattern(XString& list, const XString& extension, const wchar_t* delimiter) {
    if (!list.IsEmpty())
        list.Extend(delimiter);
    list.Extend(L"*");
    list.Extend(extension);
}

// By description; ties in a fixed order, so that spellings of one description stay together.
bool SortsBefore(const XString& a, const XString& b) {
    const int order = a.CompareNoCase(b);
    if (order != 0)
        return order < 0;
    const wchar_t* left = a;
    const wchar_t* right = b;
    while (*left && *left == *right) {
        ++left;
        ++right;
    }
    return *left != *right ? *left < *right : a.userValue < b.userValue;
}

XString AllAudioEntry(const XStringArray& extensions) {
    XString patterns;
    for (const XString& extension : extensions)
        AppendPattern(patterns, extension, L";");
    return L"All Audio Files\r" + patterns;
}

} // namespace

void BuildDecoderFilterList(DecoderFilterList& out, const XStringArray& extensions,
                            const XStringArray& descriptions, bool allAudioEntry) {
    out.Clear();
    XStringArray sorted; // userValue: place of the extension
    for (std::int64_t i = 0; i < descriptions.Count() && i < extensions.Count(); ++i)
        sorted.AddString(descriptions[i], static_cast<std::uint64_t>(i));
    sorted.Sort(SortsBefore);
    if (allAudioEntry)
        out.AddString(AllAudioEntry(extensions));
    std::int64_t i = 0;
    while (i < sorted.Count()) {
        const XString& description = sorted[i];
        XString shown;
        XString pattern;
        for (; i < sorted.Count() && sorted[i] == description; ++i) {
            const XString& extension = extensions[static_cast<std::int64_t>(sorted[i].userValue)];
            AppendPattern(shown, extension, L"; ");
            AppendPattern(pattern, extension, L";");
        }
        out.AddString(description + L"  (" + shown + L")\r" + pattern);
    }
}
