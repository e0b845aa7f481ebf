#include "forms/FormCaption.h"

#include "engine/ProgressText.h"
#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"

namespace {
constexpr wchar_t oemFileName[] = L"OEM.txt";
}

XString FormCaption() {
    XString caption(programCaption);
    XFile oem(ProgramFolder() + oemFileName);
    XString line;
    if (oem.Open(GENERIC_READ, OPEN_EXISTING) && oem.ReadLine(line, true))
        caption += L": " + line;
    return caption;
}

HICON LoadProgramIcon(int id, int pixels) {
    return static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id), IMAGE_ICON, pixels,
                                         pixels, LR_DEFAULTCOLOR));
}
