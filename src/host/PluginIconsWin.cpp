// Icons of encoders and effects: the .ico beside the library, or what the shell shows for the type.
#include "host/CodecHandler.h"

#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"

#include <shellapi.h>

namespace {

constexpr int programIcon = 101;
constexpr int iconPixels = 16;

XString IconFileOf(const wchar_t* libraryPath) {
    return StripExtension(libraryPath) + L".ico";
}

// A file name that the shell need not find, or the text as it is.
XString ShellName(const wchar_t* extension) {
    return *extension == L'.' ? XString(L"C:\\file") + extension : XString(extension);
}

} // namespace

XIcon GetEncoderIcon(const wchar_t* extension, const wchar_t* libraryPath) {
    const XString iconFile = IconFileOf(libraryPath);
    XIcon shellIcon(IsFile(iconFile) ? ShellIcon(iconFile, shellFromDisk)
                                     : ShellIcon(ShellName(extension), 0));
    ICONINFO info{};
    if (shellIcon.IsValid() && GetIconInfo(shellIcon.Get(), &info)) {
        XGdiObject colour(info.hbmColor);
        XGdiObject mask(info.hbmMask);
        return XIcon(CopyIcon(shellIcon.Get()));
    }
    return XIcon(static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(programIcon),
                                               IMAGE_ICON, iconPixels, iconPixels, LR_DEFAULTCOLOR)));
}

int GetEncoderIconIndex(const wchar_t* extension, const wchar_t* libraryPath) {
    const XString iconFile = IconFileOf(libraryPath);
    return IsFile(iconFile) ? ShellIconIndex(iconFile, shellFromDisk)
                            : ShellIconIndex(ShellName(extension), 0);
}

XIcon GetEffectIcon(const wchar_t* libraryPath) {
    return XIcon(static_cast<HICON>(
        LoadImageW(nullptr, IconFileOf(libraryPath), IMAGE_ICON, iconPixels, iconPixels, LR_LOADFROMFILE)));
}
