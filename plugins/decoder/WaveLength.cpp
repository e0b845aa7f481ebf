#include "plugins/decoder/WaveLength.h"

#include "plugins/decoder/FileInput.h"

#include <cstring>

namespace {

constexpr int mostChunks = 200; // more before the audio is no Wave file that anybody wrote
// What programs that write to a pipe put there: near the end of the signed or the unsigned range.
bool IsUnknown(std::uint32_t size) noexcept {
    return size >= 0xfffff000 || (size >= 0x7ffff000 && size <= 0x80000000);
}

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
            return IsUnknown(chunk.size) ? 0 : chunk.size;
        at += 8 + static_cast<std::int64_t>(chunk.size) + (chunk.size & 1);
    }
    return 0;
}
