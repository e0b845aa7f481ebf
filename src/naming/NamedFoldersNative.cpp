// Fixed folders for the native build, which has no shell to ask.
#include "naming/NamedFolders.h"

XString NamedFolderPath(int folderId) {
    switch (folderId) {
    case 13:
        return L"C:\\Users\\me\\Music\\";
    case 5:
        return L"C:\\Users\\me\\Documents\\";
    case 0x5003:
        return L"C:\\Temp\\";
    default:
        break;
    }
    XString path = L"C:\\Special\\";
    path += DecimalText(folderId);
    path += L"\\";
    return path;
}

bool HasNewFolderNames() {
    return true;
}

XString VolumeLabel(const XString& root) {
    return root.Left(1) == L"d" ? L"Data" : L"";
}
