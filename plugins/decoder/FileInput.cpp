#include "plugins/decoder/FileInput.h"

#include "foundation/XPath.h"

extern "C" {
#include <libavformat/avio.h>
#include <libavutil/error.h>
#include <libavutil/mem.h>
}

namespace {
constexpr int bufferBytes = 64 * 1024;

XString SystemErrorText(DWORD code) {
    switch (code) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
        return L"the file does not exist";
    case ERROR_ACCESS_DENIED:
        return L"access is denied";
    case ERROR_SHARING_VIOLATION:
        return L"another program holds the file";
    default:
        return L"system error " + DecimalText(code);
    }
}
} // namespace

bool FileInput::Open(const XString& path, XString& error) {
    Close();
    file.Reset(CreateFileW(LongPath(path, longFileLimit), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                           nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN,
                           nullptr));
    const DWORD code = GetLastError();
    if (!file.IsValid()) {
        error = SystemErrorText(code);
        return false;
    }
    auto* buffer = static_cast<unsigned char*>(av_malloc(bufferBytes));
    if (!buffer)
        return false;
    context = avio_alloc_context(buffer, bufferBytes, 0, this, ReadPacket, nullptr, Seek);
    if (!context) {
        av_free(buffer);
        return false;
    }
    return true;
}

void FileInput::Close() noexcept {
    if (context) {
        av_freep(&context->buffer);
        avio_context_free(&context);
    }
    file.Reset();
    readError = false;
}

int FileInput::Read(void* buffer, unsigned bytes) {
    DWORD got = 0;
    if (!ReadFile(file.Get(), buffer, bytes, &got, nullptr)) {
        readError = true;
        return -1;
    }
    return static_cast<int>(got);
}

bool FileInput::Rewind(std::int64_t position) {
    LARGE_INTEGER distance{};
    distance.QuadPart = position;
    return SetFilePointerEx(file.Get(), distance, nullptr, FILE_BEGIN) != FALSE;
}

std::int64_t FileInput::Size() const {
    LARGE_INTEGER size{};
    return GetFileSizeEx(file.Get(), &size) ? size.QuadPart : -1;
}

int FileInput::ReadPacket(void* self, unsigned char* buffer, int size) {
    const int got = static_cast<FileInput*>(self)->Read(buffer, static_cast<unsigned>(size));
    return got < 0 ? AVERROR(EIO) : got == 0 ? AVERROR_EOF : got;
}

std::int64_t FileInput::Seek(void* self, std::int64_t offset, int whence) {
    auto& input = *static_cast<FileInput*>(self);
    if (whence & AVSEEK_SIZE)
        return input.Size() >= 0 ? input.Size() : AVERROR(EIO);
    LARGE_INTEGER result{};
    LARGE_INTEGER distance{};
    distance.QuadPart = offset;
    const DWORD method = (whence & 3) == SEEK_CUR   ? FILE_CURRENT
                         : (whence & 3) == SEEK_END ? FILE_END
                                                    : FILE_BEGIN;
    return SetFilePointerEx(input.file.Get(), distance, &result, method) ? result.QuadPart : AVERROR(EIO);
}
