#include "plugins/dsp/PlaylistText.h"

#include "foundation/XKeyValueList.h"
#include "foundation/XPath.h"
#include "plugins/common/TagText.h"
#include "plugins/dsp/ResultRows.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace {

constexpr char mark[] = "#EXTM3U";
constexpr char byteOrderMark[] = "\xEF\xBB\xBF"; // other programs write one

wchar_t Fold(wchar_t ch) noexcept {
    return ch >= L'a' && ch <= L'z' ? static_cast<wchar_t>(ch - L'a' + L'A') : ch;
}

// Characters of "C:\" or "\\server\share\"; 0 if the path has no such root.
int RootLength(const XString& path) {
    const int parts = path.StartsWith(L"\\\\?\\UNC\\") ? 6 : path.StartsWith(L"\\\\") ? 4 : 1;
    int at = 0;
    for (int i = 0; i < parts; ++i) {
        at = path.FindChar(L'\\', at + 1);
        if (at == 0)
            return 0;
    }
    return at;
}

// Characters of the folder, with its backslash, in which both lie; 0 on different drives.
int SharedLength(const XString& a, const XString& b) {
    int shared = 0;
    for (int i = 1; i <= a.Count() && Fold(a.CharAt(i)) == Fold(b.CharAt(i)); ++i)
        if (a.CharAt(i) == L'\\')
            shared = i;
    return shared >= RootLength(a) ? shared : 0;
}

XString SharedFolder(const std::vector<XString>& outputs) {
    XString folder = FolderOf(outputs.front());
    for (const XString& output : outputs)
        folder = folder.Left(SharedLength(folder, output));
    return folder.Count() > RootLength(folder) ? folder : FolderOf(outputs.front());
}

XString RelativePath(const XString& path, const XString& folder) {
    const int shared = SharedLength(folder, path);
    if (shared == 0)
        return path;
    XString relative;
    for (int i = shared + 1; i <= folder.Count(); ++i)
        if (folder.CharAt(i) == L'\\')
            relative += L"..\\";
    relative += path.From(shared + 1);
    // Players take the one for a comment and drop the other.
    const wchar_t first = relative.CharAt(1);
    return first == L'#' || first == L' ' ? L".\\" + relative : relative;
}

// Takes "." and ".." out: a path relative to a folder with them would lead elsewhere.
XString WithoutDots(const XString& path) {
    const int root = RootLength(path);
    XString out = path.Left(root);
    for (int from = root + 1; from <= path.Count();) {
        const int slash = path.FindChar(L'\\', from);
        const int to = slash == 0 ? path.Count() : slash;
        const XString part = StripBackslash(path.Mid(from, to));
        if (part == L"..")
            out = out.Count() > root ? FolderOf(StripBackslash(out)) : out;
        else if (part != L"." && !part.IsEmpty())
            out += path.Mid(from, to);
        from = to + 1;
    }
    return out;
}

bool EndsWith(const XString& text, const wchar_t* tail) {
    return text.Right(TextLength(tail)).EqualsNoCase(tail);
}

} // namespace

PlaylistSettings ReadPlaylistSettings(const wchar_t* text) {
    const XKeyValueList list(text);
    PlaylistSettings settings;
    list.GetValue(L"file", settings.file);
    XString flag;
    settings.absolute = list.GetValue(L"absolute", flag) && flag != L"0";
    return settings;
}

std::vector<XString> PlaylistOutputs(const XTagList& results) {
    struct Entry {
        std::size_t place; // of its source
        XString output;
    };
    std::vector<Entry> entries;
    std::unordered_map<std::string, std::size_t> places;
    std::unordered_set<std::string> seen;
    ResultReader reader(results);
    for (ResultRow row; reader.Next(row);) {
        const std::size_t place = places.emplace(ToUtf8(row.source.Upper()), places.size()).first->second;
        if (!row.failed && !row.output.IsEmpty() && seen.insert(ToUtf8(row.output.Upper())).second)
            entries.push_back({place, row.output});
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& a, const Entry& b) { return a.place < b.place; });
    std::vector<XString> outputs;
    outputs.reserve(entries.size());
    for (const Entry& entry : entries)
        outputs.push_back(entry.output);
    return outputs;
}

XString PlaylistPath(const XString& file, const std::vector<XString>& outputs) {
    XString path = file;
    path.TrimLeft();
    path.TrimRight();
    path.Replace(L"/", L"\\");
    if (path.IsEmpty() || EndsWith(path, L"\\"))
        path += playlistDefaultName;
    else if (!EndsWith(path, L".m3u8") && !EndsWith(path, L".m3u"))
        path += L".m3u8";
    if (path.CharAt(2) == L':' || path.StartsWith(L"\\\\"))
        return WithoutDots(path);
    const XString folder = SharedFolder(outputs);
    return WithoutDots(path.CharAt(1) == L'\\' ? folder.Left(RootLength(folder)) + path.From(2)
                                               : folder + path);
}

std::string BuildPlaylist(const std::vector<XString>& outputs, const XString& playlistPath, bool absolute) {
    const XString folder = FolderOf(playlistPath);
    std::string text = std::string(mark) + "\r\n";
    for (const XString& output : outputs)
        text += ToUtf8(absolute ? output : RelativePath(output, folder)) + "\r\n";
    return text;
}

bool BeginsAsPlaylist(const std::string& bytes) {
    return bytes.starts_with(mark) || bytes.starts_with(std::string(byteOrderMark) + mark);
}
