// What a Wave file's header promises. FFmpeg believes the file's size instead and so can't tell a
// truncated file.
#pragma once

#include <cstdint>

class FileInput;

// Bytes of audio that the header of a RIFF Wave or Wave64 file tells; 0 if it is none or, as programs that
// write to a pipe leave it, doesn't tell. Of a RIFF file beyond 4 GB, whose header tells the size modulo
// 4 GB, it is the size that the file has room for. Moves the file's position.
[[nodiscard]] std::uint64_t PromisedWaveBytes(FileInput& input);

// True for a RIFF file whose audio goes on beyond what its header can tell. Moves the file's position.
[[nodiscard]] bool IsWrappedWave(FileInput& input);
