// XFile over CreateFileW, with its boxes for the user.
#include "foundation/XFile.h"

#include "foundation/XPath.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr wchar_t readTitle[] = L"File Read Error";
constexpr wchar_t writeTitle[] = L"File Write Error";
constexpr DWORD lineChunk = 512; // bytes that a line is read by; what is too much is given back

bool WantsRetry(const wchar_t* what, const XString& path, const wchar_t* title) {
    const XString text = what + path + L"'";
    return MessageBoxW(nullptr, text, title, MB_RETRYCANCEL | MB_ICONINFORMATION) == IDRETRY;
}

// A line's units between chunks. 8-bit text is converted whole, so that two-byte characters of
// the code page survive.
class LineText {
public:
    LineText(XString& out, bool wide) : out(out), wide(wide) {}
    void Add(const unsigned char* at) {
        wchar_t unit = at[0];
        if (wide)
            std::memcpy(&unit, at, sizeof unit);
        if (unit == 0 || (wide && unit == 0xFEFF && collected.IsEmpty()))
            return;
        collected.Extend(Single(unit));
    }
    bool Finish() {
        if (wide) {
            out = std::move(collected);
        } else {
            XBuffer bytes;
            if (bytes.SetSize(static_cast<std::uint64_t>(collected.StoredLength()), false, true)) {
                std::copy(collected.Text(), collected.Text() + collected.Count(), bytes.Bytes());
                out.Assign(reinterpret_cast<const char*>(bytes.Bytes()));
            }
        }
        return !out.IsEmpty();
    }

private:
    static XString Single(wchar_t unit) {
        const wchar_t text[] = {unit, 0};
        return XString(text);
    }
    XString& out;
    XString collected;
    bool wide;
};

wchar_t UnitAt(const unsigned char* at, bool wide) noexcept {
    wchar_t unit = at[0];
    if (wide)
        std::memcpy(&unit, at, sizeof unit);
    return unit;
}

} // namespace

bool XFile::Open(DWORD access, DWORD disposition, bool show, bool shared) {
    Close();
    for (;;) {
        showErrors = show;
        ownsHandle = true;
        handle = INVALID_HANDLE_VALUE;
        const XString name = LongPath(path, longFileLimit);
        if (!name.IsEmpty())
            handle = CreateFileW(name, access, shared ? FILE_SHARE_READ | FILE_SHARE_WRITE : 0, nullptr,
                                 disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (IsOpen() || !showErrors)
            return IsOpen();
        if (!WantsRetry(L"Unable to open '", path, access & GENERIC_WRITE ? writeTitle : readTitle))
            return false;
    }
}

DWORD XFile::Read(void* buffer, DWORD count, bool* failed) {
    for (;;) {
        DWORD done = 0;
        SetLastError(0);
        const BOOL isRead = ReadFile(handle, buffer, count, &done, nullptr);
        const DWORD error = GetLastError();
        // A short read at the end of the file is no failure.
        const bool isFailed =
            !IsOpen() || ((!isRead || done < count) && error != 0 && error != ERROR_HANDLE_EOF);
        if (failed)
            *failed = isFailed;
        if (!isFailed || !showErrors || !WantsRetry(L"Unable to read from '", path, readTitle))
            return done;
    }
}

bool XFile::Write(const void* buffer, DWORD count, DWORD* written) {
    if (written)
        *written = 0;
    if (!buffer) {
        if (count > 0 && showErrors)
            MessageBoxW(nullptr, L"Error writing a NULL buffer to file", writeTitle, MB_ICONINFORMATION);
        return count == 0;
    }
    for (;;) {
        DWORD done = 0;
        const BOOL isWritten = IsOpen() && WriteFile(handle, buffer, count, &done, nullptr);
        if (written)
            *written = done;
        if (isWritten && done == count)
            return true;
        if (!showErrors || !WantsRetry(L"Unable to write to '", path, writeTitle))
            return false;
    }
}

bool XFile::ReadLine(XString& out, bool wide) {
    out.Clear();
    LineText line(out, wide);
    const DWORD unit = wide ? 2 : 1;
    // Only a file on disk can give back what was read behind the line.
    const bool canSeek = IsOpen() && GetFileType(handle) == FILE_TYPE_DISK;
    unsigned char chunk[lineChunk];
    bool behindReturn = false;
    for (;;) {
        const DWORD done = Read(chunk, canSeek ? lineChunk : unit);
        for (DWORD at = 0; at + unit <= done; at += unit) {
            const wchar_t ch = UnitAt(chunk + at, wide);
            const bool isLineEnd = ch == L'\n' || behindReturn;
            const DWORD used = ch == L'\n' ? at + unit : at;
            if (isLineEnd) {
                GiveBack(done - used);
                line.Finish();
                return true;
            }
            behindReturn = ch == L'\r';
            if (!behindReturn)
                line.Add(chunk + at);
        }
        if (done < unit) {
            const bool hasText = line.Finish();
            return hasText || behindReturn;
        }
    }
}

void XFile::GiveBack(DWORD bytes) noexcept {
    LARGE_INTEGER distance;
    distance.QuadPart = -static_cast<LONGLONG>(bytes);
    if (bytes > 0)
        SetFilePointerEx(handle, distance, nullptr, FILE_CURRENT);
}

void XFile::Close() noexcept {
    if (IsOpen() && ownsHandle)
        CloseHandle(handle);
    handle = INVALID_HANDLE_VALUE;
}

bool ReadWholeFile(const XString& path, XBuffer& out) {
    out.Free();
    XFile file(path);
    LARGE_INTEGER size{};
    if (!file.Open(GENERIC_READ, OPEN_EXISTING) || !GetFileSizeEx(file.handle, &size))
        return false;
    if (size.QuadPart < 0 || size.QuadPart > MAXDWORD)
        return false;
    const auto count = static_cast<DWORD>(size.QuadPart);
    if (!out.SetSize(count, false, false))
        return false;
    return file.Read(out.data, count) == count;
}
