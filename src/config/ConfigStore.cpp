#include "config/ConfigStore.h"

#include "contract/Keys.h"
#include "foundation/XFileSystem.h"
#include "foundation/XFindFile.h"
#include "foundation/XPath.h"
#include "foundation/XTempFile.h"
#include "host/CodecHandler.h"
#include "host/Settings.h"

namespace {

bool TakesFolder(const XString& encoderName) {
    clZtEncoder encoder;
    PluginCreateBlock block{};
    if (!clZtCodecHandler::LoadEncoder(encoderName, encoder, &block))
        return false;
    PluginParams params{};
    return encoder.AskGet(ZtKey::disableConvertToFolder, params) == 0;
}

// The installed encoders that can be given a folder, and their profiles.
void ItemsWithFolder(XStringArray& items) {
    XFindFile search(EncoderFolder(), L"*.dll");
    while (search.Next()) {
        const XString name = StripExtension(search.findData.cFileName);
        if (!search.IsFolder() && TakesFolder(name))
            items.AddString(name);
    }
    XStringArray keys;
    RegEnumSubkeys(nullptr, SettingsPath(Setting::keyCodecs), keys);
    for (const XString& key : keys)
        if (IsProfileItem(key) && items.Contains(EncoderNameOf(key), true))
            items.AddString(key);
}

} // namespace

clConfig ReadConfig() {
    clConfig config;
    config.tempFolder = RegReadString(Setting::tempFileLocation);
    config.allowProfiles = RegReadDword(Setting::allowProfiles) != 0;
    config.timeFormat = RegReadDword(Setting::unitsTime, nullptr, SettingsPath(Setting::keyUnits));
    if (config.timeFormat < leastTimeFormat || config.timeFormat > mostTimeFormat)
        config.timeFormat = leastTimeFormat;
    return config;
}

void WriteConfig(const clConfig& config) {
    RegWriteString(config.tempFolder, Setting::tempFileLocation);
    RegWriteDword(config.allowProfiles ? 1 : 0, Setting::allowProfiles);
    RegWriteDword(config.timeFormat, Setting::unitsTime, nullptr, SettingsPath(Setting::keyUnits));
}

void ForgetDecoders() {
    RegDeleteTree(nullptr, SettingsPath(), Setting::keyDecoderCache + 1); // without its backslash
}

void SetOutputFolders(const XString& folder, clFolderScope scope) {
    XStringArray items;
    ItemsWithFolder(items);
    for (const XString& item : items) {
        const XString key = EncoderKeyPath(item);
        if (scope == scopeWithoutFolder && !RegReadString(Setting::outputFolder, nullptr, key).IsEmpty())
            continue;
        if (RegReadDword(Setting::outputMode, nullptr, key) != outputDynamic)
            RegWriteDword(outputChosenFolder, Setting::outputMode, nullptr, key);
        RegWriteString(folder, Setting::outputFolder, nullptr, key);
    }
}

bool IsWholePath(const XString& path) {
    const bool isServer = path.StartsWith(L"\\\\") && path.CharAt(3) != 0 && path.CharAt(3) != L'\\';
    return isServer || (path.CharAt(2) == L':' && path.CharAt(3) == L'\\');
}

bool CanWriteInto(const XString& folder) {
    XTempFile probe;
    return MakeFolders(folder) && probe.MakeNewIn(folder, L"ZtC");
}
