#include "host/EncoderItem.h"

bool IsProfileItem(const XString& itemText) {
    return itemText.CharAt(itemText.Count()) == L'"';
}

XString EncoderNameOf(const XString& itemText) {
    if (!IsProfileItem(itemText))
        return itemText;
    const XString open = itemText.Left(itemText.Count() - 1);
    // From the end, because a profile's own name may hold quotes.
    const int quote = open.ReverseFindChar(L'"');
    return quote > 0 ? open.From(quote + 1) : open;
}

XString ProfileItemText(const XString& profileName, const XString& encoderName) {
    return profileName + L" \"" + encoderName + L"\"";
}

void SmartInstallFromLines(XArray<clSmartInstall>& out, const XStringArray& lines) {
    out.Clear();
    for (std::int64_t i = 0; i + 2 < lines.Count(); i += 3) {
        clSmartInstall* record = out.AddNew();
        record->extension = lines[i];
        record->name = lines[i + 1];
        record->address = lines[i + 2];
    }
}

bool IsSmartInstallOffered(const clSmartInstall& record, const XStringArray& listedNames) {
    return !listedNames.Contains(record.name, true) && record.name.Find(L"read only") == 0;
}
