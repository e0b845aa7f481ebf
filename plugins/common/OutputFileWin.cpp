// Writing through CreateFileW with one buffer in front, so that small writes of codecs cost nothing.
#include "plugins/common/OutputFile.h"

#include "foundation/XPath.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t bufferBytes = 256 * 1024;

XString SystemText(DWORD code) {
    if (code == ERROR_DISK_FULL || code == ERROR_HANDLE_DISK_FULL)
        return L"the disk is full";
    wchar_t text[300];
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code,
                                  0, text, static_cast<DWORD>(std::size(text)), nullptr);
    while (length > 0 && (text[length - 1] <= L' ' || text[length - 1] == L'.'))
        --length;
    XString result = L"error " + DecimalText(code);
    if (length == 0)
        return result;
    text[length] = 0;
    return result + L", " + text;
}

} // namespace

bool OutputFile::Fail(const wchar_t* what, DWORD code) {
    if (error.IsEmpty())
        error = XString(what) + L" '" + path + L"': " + SystemText(code);
    return false;
}

bool OutputFile::Create(const wchar_t* newPath) {
    Abandon();
    path = newPath;
    error.Clear();
    position = 0;
    buffer.resize(bufferBytes);
    handle.Reset(CreateFileW(LongPath(path, longFileLimit), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ,
                             nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!handle.IsValid()) {
        const DWORD code = GetLastError();
        return Fail(L"Can't create the file", code);
    }
    return true;
}

bool OutputFile::Write(const void* bytes, std::uint64_t count) {
    if (HasFailed() || !handle.IsValid())
        return false;
    if (count == 0) // `bytes` may be null then
        return true;
    if (count > bufferBytes - used && !Flush())
        return false;
    if (count >= bufferBytes)
        return WriteThrough(static_cast<const unsigned char*>(bytes), count);
    std::memcpy(buffer.data() + used, bytes, static_cast<std::size_t>(count));
    used += static_cast<std::size_t>(count);
    return true;
}

bool OutputFile::WriteZeros(std::uint64_t count) {
    static constexpr unsigned char zeros[4096] = {};
    for (; count > 0; count -= std::min<std::uint64_t>(count, sizeof zeros))
        if (!Write(zeros, std::min<std::uint64_t>(count, sizeof zeros)))
            return false;
    return true;
}

bool OutputFile::Seek(std::uint64_t target) {
    if (HasFailed() || !Flush())
        return false;
    LARGE_INTEGER distance;
    distance.QuadPart = static_cast<LONGLONG>(target);
    if (!SetFilePointerEx(handle.Get(), distance, nullptr, FILE_BEGIN)) {
        const DWORD code = GetLastError();
        return Fail(L"Can't move in the file", code);
    }
    position = target;
    return true;
}

bool OutputFile::Flush() {
    const std::size_t count = used;
    used = 0;
    return WriteThrough(buffer.data(), count);
}

bool OutputFile::WriteThrough(const unsigned char* bytes, std::uint64_t count) {
    while (count > 0) {
        const DWORD part = static_cast<DWORD>(std::min<std::uint64_t>(count, 1u << 30));
        DWORD written = 0;
        const BOOL done = WriteFile(handle.Get(), bytes, part, &written, nullptr);
        const DWORD code = GetLastError();
        if (!done || written != part)
            return Fail(L"Can't write to the file", done ? ERROR_DISK_FULL : code);
        bytes += part;
        count -= part;
        position += part;
    }
    return true;
}

bool OutputFile::Close() {
    const bool done = !HasFailed() && handle.IsValid() && Flush();
    Abandon();
    return done;
}

void OutputFile::Abandon() noexcept {
    handle.Reset();
    used = 0;
}
