// The file that an encoder writes, buffered; each failure of the system is kept as a text for the user.
#pragma once

#include "foundation/XHandles.h"
#include "foundation/XString.h"

#include <cstdint>
#include <vector>

class OutputFile {
public:
    OutputFile() = default;
    ~OutputFile() { Abandon(); }
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    // Makes the file or empties it. After a failure of any call all later ones fail too.
    [[nodiscard]] bool Create(const wchar_t* path);
    [[nodiscard]] bool Write(const void* bytes, std::uint64_t count);
    [[nodiscard]] bool Seek(std::uint64_t position);
    [[nodiscard]] bool WriteZeros(std::uint64_t count);
    [[nodiscard]] bool Close(); // false if the last bytes could not be written
    void Abandon() noexcept;    // closes without writing what is buffered

    [[nodiscard]] std::uint64_t Position() const noexcept { return position + used; }
    [[nodiscard]] bool HasFailed() const noexcept { return !error.IsEmpty(); }
    [[nodiscard]] const XString& Error() const noexcept { return error; } // with the file's name

private:
    [[nodiscard]] bool Flush();
    [[nodiscard]] bool WriteThrough(const unsigned char* bytes, std::uint64_t count);
    bool Fail(const wchar_t* what, DWORD code);

    XFileHandle handle;
    XString path;
    XString error;
    std::vector<unsigned char> buffer;
    std::size_t used = 0;       // bytes in the buffer
    std::uint64_t position = 0; // of the file, where the buffer's first byte goes
};
