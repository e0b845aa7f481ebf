// The effect library "Playlist Writer": leaves audio alone and, at the end of a batch, writes a playlist
// of its outputs. Settings: -file="name or path" (default Playlist.m3u8, beside the outputs) -absolute.
#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"
#include "plugins/common/OutputFile.h"
#include "plugins/dsp/EffectExports.h"
#include "plugins/dsp/PlaylistPanel.h"
#include "plugins/dsp/PlaylistText.h"

#include <algorithm>

namespace {

class clPlaylistWriter : public EffectBase {
public:
    bool EndBatch(const PluginParams& params);

    PlaylistPanel panel;

private:
    bool MayWrite(const XString& path, bool& replaces);
    bool WriteWhole(const XString& path, const std::string& text, bool replaces);
    bool Fail(const XString& text) {
        lastError = text;
        return false;
    }
};

std::vector<XString> ExistingOutputs(const PluginParams& params) {
    XTagList results;
    if (params.data)
        results.Deserialize(params.data, params.dataSize);
    std::vector<XString> outputs = PlaylistOutputs(results);
    std::erase_if(outputs, [](const XString& output) { return !IsFile(output); });
    return outputs;
}

// What stands there already is replaced only if it is a playlist, too.
bool clPlaylistWriter::MayWrite(const XString& path, bool& replaces) {
    replaces = false;
    if (NamesDevice(path))
        return Fail(L"The playlist can't be called '" + path + L"': Windows keeps that name for a device");
    bool isFolder = false;
    if (!PathExists(path, &isFolder))
        return true;
    XFile file(path);
    char bytes[playlistMarkBytes];
    if (isFolder || !file.Open(GENERIC_READ, OPEN_EXISTING))
        return Fail(L"'" + path + L"' stands where the playlist should go and can't be read");
    if (!BeginsAsPlaylist(std::string(bytes, file.Read(bytes, sizeof bytes))))
        return Fail(L"The file '" + path + L"' is no playlist and was not replaced");
    replaces = true;
    return true;
}

XString UnusedName(const XString& path) {
    XString name;
    int number = 0;
    do
        name = path + L"." + DecimalText(++number) + L".tmp";
    while (PathExists(name));
    return name;
}

// Under a temporary name first: a failure leaves the earlier playlist, and never half a new one.
bool clPlaylistWriter::WriteWhole(const XString& path, const std::string& text, bool replaces) {
    const XString temporary = UnusedName(path);
    OutputFile file;
    bool done = file.Create(temporary) && file.Write(text.data(), text.size()) && file.Close();
    if (!done)
        Fail(file.Error());
    else if (!MoveFileExW(LongPath(temporary, longFolderLimit), LongPath(path, longFolderLimit),
                          replaces ? MOVEFILE_REPLACE_EXISTING : 0)) {
        const DWORD code = GetLastError();
        done = Fail(L"Can't write the file '" + path + L"': error " + DecimalText(code));
    }
    if (!done)
        DeleteFileW(LongPath(temporary, longFolderLimit));
    return done;
}

bool clPlaylistWriter::EndBatch(const PluginParams& params) {
    const std::vector<XString> outputs = ExistingOutputs(params);
    if (outputs.empty()) // an earlier playlist is worth more than an empty one
        return true;
    const PlaylistSettings settings = ReadPlaylistSettings(params.text1);
    const XString path = PlaylistPath(settings.file, outputs);
    bool replaces = false;
    if (!MayWrite(path, replaces))
        return false;
    MakeFolders(FolderOf(path));
    return WriteWhole(path, BuildPlaylist(outputs, path, settings.absolute), replaces);
}

} // namespace

ZT_EFFECT_EXPORTS(clPlaylistWriter)
