#include "worker/SystemText.h"

#include "foundation/XPath.h"

XString SystemErrorText(DWORD error) {
    wchar_t text[512];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS |
                                            FORMAT_MESSAGE_MAX_WIDTH_MASK,
                                        nullptr, error, 0, text, ARRAYSIZE(text), nullptr);
    XString result;
    if (length == 0) {
        result.Format(L"system error %u", static_cast<unsigned>(error));
        return result;
    }
    result = text;
    result.TrimRight();
    if (result.CharAt(result.Count()) == L'.')
        result.SetLength(result.Count() - 1);
    return result;
}

bool IsDiskFull(const XString& folder) {
    constexpr ULONGLONG nothingLeft = 1 << 20; // bytes; less than codecs write at once
    ULARGE_INTEGER available{};
    return GetDiskFreeSpaceExW(LongPath(folder, longFolderLimit), &available, nullptr, nullptr) &&
           available.QuadPart < nothingLeft;
}
