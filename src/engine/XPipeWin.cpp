// A one-way anonymous pipe that is read without waiting.
#include "engine/XPipe.h"

namespace {
// One call reads no more than this: a writer that never stops must not hold up the forms' thread. It
// is far more than a pipe holds, so that nothing of a worker that has ended is left behind.
constexpr std::uint64_t readLimit = 4u << 20;
} // namespace

bool XPipe::Create() {
    Close();
    SECURITY_ATTRIBUTES security{sizeof(security), nullptr, FALSE};
    HANDLE reading = nullptr, writing = nullptr;
    if (!CreatePipe(&reading, &writing, &security, 0))
        return false;
    readEnd.Reset(reading);
    writeEnd.Reset(writing);
    return true;
}

XFileHandle XPipe::TakeWriteEnd() {
    if (!writeEnd.IsValid())
        return XFileHandle();
    HANDLE duplicate = nullptr;
    const HANDLE self = GetCurrentProcess();
    // The source is closed even if no duplicate comes out, so it is given up in any case.
    if (!DuplicateHandle(self, writeEnd.Release(), self, &duplicate, 0, TRUE,
                         DUPLICATE_CLOSE_SOURCE | DUPLICATE_SAME_ACCESS))
        return XFileHandle();
    return XFileHandle(duplicate);
}

const XBuffer& XPipe::ReadAvailable(bool* broken) {
    buffer.fill = 0;
    while (readEnd.IsValid() && buffer.fill < readLimit) {
        DWORD waiting = 0, got = 0;
        bool good = PeekNamedPipe(readEnd.Get(), nullptr, 0, nullptr, &waiting, nullptr) != 0;
        if (good && waiting == 0)
            break;
        // Ample room ahead, since a pipe that holds something is likely to be filled again meanwhile.
        good = good && buffer.SetSize(buffer.fill + 3 * std::uint64_t{waiting}, true, false) &&
               ReadFile(readEnd.Get(), buffer.Bytes() + buffer.fill, waiting, &got, nullptr) && got > 0;
        if (!good) {
            if (broken)
                *broken = true;
            break;
        }
        buffer.fill += got;
    }
    return buffer;
}

void XPipe::Close() noexcept {
    readEnd.Reset();
    writeEnd.Reset();
    buffer.fill = 0;
}
