#include "Kinds.h"

#include "foundation/XPath.h"

#include <iterator>

namespace {

constexpr const wchar_t* decoderExports[] = {L"Create", L"Destroy",     L"Get",         L"Set",       L"Open",
                                             L"Close",  L"DecodeBlock", L"SetPosition", L"DeleteATag"};
constexpr const wchar_t* encoderExports[] = {L"ENC_Create",
                                             L"ENC_Destroy",
                                             L"ENC_Get",
                                             L"ENC_Set",
                                             L"ENC_ShowConfigBit",
                                             L"ENC_RemoveConfigBit",
                                             L"ENC_BeginConversion",
                                             L"ENC_EndConversion",
                                             L"ENC_EncodeBlock"};
constexpr const wchar_t* effectExports[] = {L"DSP_Create",
                                            L"DSP_Destroy",
                                            L"DSP_Get",
                                            L"DSP_Set",
                                            L"DSP_ShowConfigBit",
                                            L"DSP_RemoveConfigBit",
                                            L"DSP_BeginConversion",
                                            L"DSP_EndConversion",
                                            L"DSP_PassAudioBlock",
                                            L"DSP_PassNonLive",
                                            L"DSP_AfterConversion"};

constexpr KindRow kinds[kindCount] = {
    {PluginKind::decoder, L"a decoder", L"decoder", L"", decoderExports, std::size(decoderExports)},
    {PluginKind::encoder, L"an encoder", L"encoder", L"ENC_", encoderExports, std::size(encoderExports)},
    {PluginKind::effect, L"an effect", L"DSPs", L"DSP_", effectExports, std::size(effectExports)},
};

int CountPresent(const PeImage& image, const KindRow& row) {
    int count = 0;
    for (int i = 0; i < row.exportCount; ++i)
        count += image.exports.Contains(row.exports[i], false) ? 1 : 0;
    return count;
}

// "_ENC_Get@24", "?ENC_Get@@YA..." and "_Z7ENC_Get..." are names of another function to the loader.
bool IsSpellingOf(const XString& found, const XString& wanted) {
    for (const XString& head : {wanted + L"@", XString(L"_") + wanted + L"@", XString(L"?") + wanted + L"@",
                                XString(L"_Z") + DecimalText(wanted.Count()) + wanted})
        if (found.StartsWith(head))
            return true;
    return false;
}

} // namespace

const KindRow& RowOf(PluginKind kind) {
    return kinds[static_cast<int>(kind)];
}

bool DetectKind(const XString& path, const PeImage& image, PluginKind& kind) {
    const XString folder = NameOf(StripBackslash(FolderOf(path)));
    int most = 0;
    for (const KindRow& row : kinds) {
        const int count = CountPresent(image, row);
        if (count != 0 && folder.EqualsNoCase(row.folder)) {
            kind = row.kind;
            return true;
        }
        if (count > most) {
            most = count;
            kind = row.kind;
        }
    }
    return most != 0;
}

void FindExportFaults(const PeImage& image, const KindRow& row, XStringArray& faults) {
    for (int i = 0; i < row.exportCount; ++i) {
        const XString wanted = row.exports[i];
        if (image.exports.Contains(wanted, false))
            continue;
        XString fault = XString(L"the export ") + wanted + L" is missing";
        for (const XString& found : image.exports)
            if (IsSpellingOf(found, wanted)) {
                fault += XString(L"; it is there as \"") + found +
                         L"\": declare it extern \"C\", and if the name "
                         L"still has an addition, list the plain name in a .def file";
                break;
            }
        faults.AddString(fault);
    }
}
