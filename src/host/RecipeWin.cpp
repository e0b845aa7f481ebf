// What an item of the encoder list keeps in the registry.
#include "host/CodecHandler.h"
#include "host/Settings.h"

#include "foundation/XFileSystem.h"

#include <shlobj.h>

XString EncoderKeyPath(const wchar_t* itemText) {
    return SettingsPath(Setting::keyCodecs) + L"\\" + itemText;
}

clRecipe ReadRecipe(const wchar_t* itemText) {
    const XString key = EncoderKeyPath(itemText);
    clRecipe recipe;
    recipe.encoderSettings = RegReadString(Setting::encoderSettings, nullptr, key);
    recipe.mode = RegReadDword(Setting::outputMode, nullptr, key);
    recipe.folder = RegReadString(Setting::outputFolder, nullptr, key);
    if (recipe.folder.IsEmpty())
        recipe.folder = GetSpecialFolder(CSIDL_MYMUSIC);
    recipe.naming = RegReadString(Setting::dynamicNaming, nullptr, key);
    if (recipe.naming.IsEmpty())
        recipe.naming = defaultNaming;
    recipe.effects = RegReadString(Setting::effectChain, nullptr, key);
    return recipe;
}

void WriteRecipe(const wchar_t* itemText, const clRecipe& recipe) {
    const XString key = EncoderKeyPath(itemText);
    RegWriteString(recipe.encoderSettings, Setting::encoderSettings, nullptr, key);
    RegWriteDword(recipe.mode, Setting::outputMode, nullptr, key);
    RegWriteString(recipe.folder, Setting::outputFolder, nullptr, key);
    RegWriteString(recipe.naming, Setting::dynamicNaming, nullptr, key);
    RegWriteString(recipe.effects, Setting::effectChain, nullptr, key);
}

void DeleteRecipe(const wchar_t* itemText) {
    RegDeleteTree(nullptr, SettingsPath(Setting::keyCodecs), itemText);
}
