// Decodes a finished WavPack file as a check of what was encoded. Windows only.
#pragma once

#include "foundation/XString.h"
#include "plugins/common/Checksums.h"

#include <cstdint>

// True if the file holds so many frames whose samples, packed to bytes as in a wave file, have this
// MD5. Otherwise `error` says what is wrong.
[[nodiscard]] bool CheckWavPackFile(const XString& path, std::uint64_t frames,
                                    const unsigned char (&digest)[Md5::digestBytes], XString& error);
