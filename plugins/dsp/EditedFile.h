// An existing file that is changed as a whole or not at all. Windows only.
#pragma once

#include "foundation/XHandles.h"
#include "foundation/XString.h"
#include "plugins/dsp/PieceFile.h"

#include <optional>

class EditedFile {
public:
    // Nobody else may write it until this object goes.
    [[nodiscard]] bool Open(const XString& path);
    [[nodiscard]] PieceFile& Content() noexcept { return *content; } // after Open
    // Writes the changes into the file if little of it moves; what was there is put back if that fails.
    // Else writes a new file beside it, which then takes its name. Closes in any case.
    [[nodiscard]] bool Commit();
    [[nodiscard]] const XString& Error() const noexcept { return error; } // with the path

private:
    [[nodiscard]] bool WriteInPlace();
    [[nodiscard]] bool WriteAnew();
    [[nodiscard]] bool WritePieces();
    bool Fail(const wchar_t* what, DWORD code);

    XFileHandle handle;
    XString path;
    std::uint64_t sizeBefore = 0;
    std::optional<PieceFile> content;
    XString error;
};
