#include "plugins/decoder/WaveLength.h"

#include "plugins/decoder/FileInput.h"

#include <cstring>

namespace {

constexpr int mostChunks = 200;                   // more before the audio is no Wave file that anybody wrote
constexpr std::uint32_t unknownFrom = 0x7ffff000; // sizes from here on stand for "as it comes"

struct Chunk {
    char name[4];
    std::uint32_t size;
};

bool Is(const char* name, const char* wanted) {
    return std::memcmp(name, wanted, 4) == 0;
}

} // namespace

std::uint64_t PromisedWaveBytes(FileInput& input) {
    Chunk chunk{};
    char kind[4];
    if (!input.Rewind() || input.Read(&chunk, sizeof chunk) != sizeof chunk || !Is(chunk.name, "RIFF") ||
        input.Read(kind, sizeof kind) != sizeof kind || !Is(kind, "WAVE"))
        return 0;
    std::int64_t at = 12;
    for (int i = 0; i < mostChunks; ++i) {
        if (!input.Rewind(at) || input.Read(&chunk, sizeof chunk) != sizeof chunk)
            return 0;
        if (Is(chunk.name, "data"))
            return chunk.size < unknownFrom ? chunk.size : 0;
        at += 8 + static_cast<std::int64_t>(chunk.size) + (chunk.size & 1);
    }
    return 0;
}
