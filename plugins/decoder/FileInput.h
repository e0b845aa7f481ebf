// Bytes of a source file for FFmpeg, read through a handle of ours: long paths and sharing are ours.
#pragma once

#include "foundation/XHandles.h"
#include "foundation/XString.h"

struct AVIOContext;

class FileInput {
public:
    FileInput() = default;
    ~FileInput() { Close(); }
    FileInput(const FileInput&) = delete;
    FileInput& operator=(const FileInput&) = delete;

    // False if the file can't be opened or memory ran out; `error` then has the system's reason.
    [[nodiscard]] bool Open(const XString& path, XString& error);
    void Close() noexcept;
    [[nodiscard]] AVIOContext* Context() const noexcept { return context; } // borrowed
    // Plain reading from where the file stands, for those who don't go through the context. Bytes
    // read, 0 at the end, -1 on failure.
    [[nodiscard]] int Read(void* buffer, unsigned bytes);
    [[nodiscard]] bool Rewind(std::int64_t position = 0);
    [[nodiscard]] std::int64_t Size() const; // bytes; -1 on failure
    // A read that failed for another reason than the end of the file.
    [[nodiscard]] bool HadReadError() const noexcept { return readError; }

private:
    static int ReadPacket(void* self, unsigned char* buffer, int size);
    static std::int64_t Seek(void* self, std::int64_t offset, int whence);

    XFileHandle file;
    AVIOContext* context = nullptr;
    bool readError = false;
};
