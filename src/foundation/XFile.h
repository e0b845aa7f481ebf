// A file object. With showErrors it is the one class here that talks to the user, by boxes with
// Retry and Cancel. Windows only; portable code works on bytes and texts that it is handed.
#pragma once

#include "foundation/XBuffer.h"
#include "foundation/XString.h"

#include <windows.h>

class XFile {
public:
    XFile() = default;
    explicit XFile(const XString& path) : path(path) {}
    ~XFile() { Close(); }
    XFile(const XFile&) = delete;
    XFile& operator=(const XFile&) = delete;

    // GENERIC_* access and a CREATE_*/OPEN_* disposition. Not shared means exclusive. True if
    // `handle` is valid afterwards.
    bool Open(DWORD access, DWORD disposition, bool showErrors = false, bool shared = true);
    // Bytes read; fewer at the end of the file is no failure.
    DWORD Read(void* buffer, DWORD count, bool* failed = nullptr);
    bool Write(const void* buffer, DWORD count, DWORD* written = nullptr); // true: all went out
    // One line in 8-bit (active code page) or 16-bit units. CR, LF and CR LF end it; a byte-order
    // mark at its start is dropped. False at the end of the file.
    bool ReadLine(XString& out, bool wide);
    [[nodiscard]] bool IsOpen() const noexcept { return handle != INVALID_HANDLE_VALUE; }
    void Close() noexcept;

    XString path;
    HANDLE handle = INVALID_HANDLE_VALUE;
    bool showErrors = false;
    bool ownsHandle = false;

private:
    void GiveBack(DWORD bytes) noexcept;
};

// The whole file in one read, shared; false if it can't be opened or read whole.
[[nodiscard]] bool ReadWholeFile(const XString& path, XBuffer& out);
