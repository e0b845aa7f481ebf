#include "plugins/decoder/WaveLength.h"

#include "plugins/decoder/FileInput.h"

#include <cstring>
#include <limits>

namespace {

constexpr int mostChunks = 200; // more before the audio is no Wave file that anybody wrote
constexpr std::int64_t wrapBytes = std::int64_t{1} << 32;
constexpr std::uint64_t highestPosition = std::uint64_t{1} << 62;
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

// Wave64: names of 16 bytes, of which the first four tell enough, and sizes of 64 bits that count
// themselves and the name, rounded up to 8.
std::uint64_t PromisedWave64Bytes(FileInput& input) {
    struct Head {
        char name[16];
        std::uint64_t size;
    } head{};
    constexpr std::uint64_t headBytes = sizeof head;
    static_assert(headBytes == 24);
    std::uint64_t at = headBytes + sizeof head.name; // behind "riff", its size and "wave"
    for (int i = 0; i < mostChunks && at < highestPosition; ++i) {
        if (!input.Rewind(static_cast<std::int64_t>(at)) || input.Read(&head, headBytes) != int{headBytes} ||
            head.size < headBytes || head.size > highestPosition)
            return 0;
        if (Is(head.name, "data"))
            return head.size - headBytes;
        at += (head.size + 7) / 8 * 8;
    }
    return 0;
}

} // namespace

std::uint64_t PromisedWaveBytes(FileInput& input) {
    Chunk chunk{};
    char kind[4];
    if (!input.Rewind() || input.Read(&chunk, sizeof chunk) != sizeof chunk)
        return 0;
    if (Is(chunk.name, "riff"))
        return PromisedWave64Bytes(input);
    if (!Is(chunk.name, "RIFF") || input.Read(kind, sizeof kind) != sizeof kind || !Is(kind, "WAVE"))
        return 0;
    std::int64_t at = 12;
    for (int i = 0; i < mostChunks; ++i) {
        if (!input.Rewind(at) || input.Read(&chunk, sizeof chunk) != sizeof chunk)
            return 0;
        if (Is(chunk.name, "data")) {
            if (IsUnknown(chunk.size))
                return 0;
            const std::int64_t behind = input.Size() - at - 8 - chunk.size;
            return chunk.size + static_cast<std::uint64_t>(behind > 0 ? behind / wrapBytes * wrapBytes : 0);
        }
        at += 8 + static_cast<std::int64_t>(chunk.size) + (chunk.size & 1);
    }
    return 0;
}

bool IsWrappedWave(FileInput& input) {
    char name[4];
    return input.Rewind() && input.Read(name, sizeof name) == sizeof name && Is(name, "RIFF") &&
           PromisedWaveBytes(input) > std::numeric_limits<std::uint32_t>::max();
}
