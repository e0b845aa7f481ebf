// The text of a playlist and the place where it belongs: an extended M3U in UTF-8 without byte-order
// mark, "#EXTM3U" and then one path a line, lines ending in CR LF. Portable: of the disk it knows nothing.
#pragma once

#include "foundation/XTagList.h"

#include <string>
#include <vector>

inline constexpr wchar_t playlistDefaultName[] = L"Playlist.m3u8";

struct PlaylistSettings {
    XString file;          // name or path
    bool absolute = false; // full paths; otherwise relative to the playlist's folder, where that can be
};
// -file="name or path" -absolute
[[nodiscard]] PlaylistSettings ReadPlaylistSettings(const wchar_t* text);

// Outputs of the rows that did not fail, each once. They stand in the order of their sources, all of
// one source together, whichever worker was first.
[[nodiscard]] std::vector<XString> PlaylistOutputs(const XTagList& results);

// Where the playlist goes. `file` without a folder of its own belongs into the folder that all outputs
// share, or into the first one's if that is a whole drive or none. `outputs` holds at least one.
[[nodiscard]] XString PlaylistPath(const XString& file, const std::vector<XString>& outputs);

[[nodiscard]] std::string BuildPlaylist(const std::vector<XString>& outputs, const XString& playlistPath,
                                        bool absolute);
// True if a file that begins so is a playlist, which may be replaced.
[[nodiscard]] bool BeginsAsPlaylist(const std::string& bytes);
inline constexpr int playlistMarkBytes = 10; // how many of them are wanted
