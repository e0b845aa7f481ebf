// The settings that Tonemill reads and that only the configuration program writes. Windows only.
#pragma once

#include "foundation/XString.h"

#include <cstdint>

struct clConfig {
    XString tempFolder;           // empty: the system's
    bool allowProfiles = false;   // profiles can be created and deleted
    std::uint32_t timeFormat = 1; // of lengths: leastTimeFormat to mostTimeFormat
};
inline constexpr std::uint32_t leastTimeFormat = 1;
inline constexpr std::uint32_t mostTimeFormat = 4;

[[nodiscard]] clConfig ReadConfig(); // a number without a meaning comes as leastTimeFormat
void WriteConfig(const clConfig& config);
// Each decoder is looked for anew when a file of its kind comes.
void ForgetDecoders();

enum clFolderScope : int {
    scopeWithoutFolder = 0, // items that were never given a folder
    scopeAll = 1,
};
// There is no stored default: every encoder and profile keeps a folder of its own. This sets those of
// all that are there now, but for encoders that write into no chosen folder. Where the output went beside
// its source it goes into the folder from now on; naming by tags stays, and begins there.
void SetOutputFolders(const XString& folder, clFolderScope scope);

// Whether a path says where it begins: with a drive or a server.
[[nodiscard]] bool IsWholePath(const XString& path);
// Makes the folder if it is not there. True if a file can be written into it.
[[nodiscard]] bool CanWriteInto(const XString& folder);
