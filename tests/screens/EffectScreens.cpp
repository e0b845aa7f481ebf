// The chain of effects with a row selected, its menu with the effects to add, and an effect's settings.
#include "FormScreens.h"

#include "forms/setup/EffectSettingsDialog.h"
#include "forms/setup/frmConvertToOpt.h"
#include "host/Settings.h"
#include "resources/ids.h"

namespace {

constexpr wchar_t item[] = L"Wave";

HWND Form() {
    return FindForm(ID_OPTIONS_TAB);
}

void ShowChain(std::vector<FormDriver::Step> steps) {
    clRecipe recipe;
    recipe.effects = L"-dspeffect1=\"Playlist Writer=\" -dspeffect2=\"Batch Report=-file={qt}D:\\Converted\\"
                     L"report.txt{qt}\" -dspeffect3=\"An effect that was removed=-gain={qt}-3 dB{qt}\"";
    WriteRecipe(item, recipe);
    RegWriteString(item, Setting::lastCodec);
    steps.insert(steps.begin(), [] {
        const HWND list = FindWindowExW(Form(), nullptr, L"ListBox", nullptr);
        SendMessageW(list, LB_SETCURSEL, 1, 0);
        SendMessageW(Form(), WM_COMMAND, LBN_SELCHANGE << 16, reinterpret_cast<LPARAM>(list));
        return list && IsWindowVisible(list);
    });
    clFileList files;
    bool convert = false;
    const FormDriver driver = HoldAfter(std::move(steps));
    const frmConvertToOpt form(convert, files);
}

FormDriver::Step Key(WPARAM key) {
    return [key] { return IsMenuOpen() && PostMessageW(Form(), WM_KEYDOWN, key, 0); };
}

} // namespace

void ShowEffects() {
    ShowChain({});
}

void ShowEffectsMenu() {
    ShowChain({[] { return PostMessageW(Form(), WM_COMMAND, ID_EFFECT_ADD, 0) != 0; }, Key(VK_DOWN),
               Key(VK_RIGHT), Key(VK_DOWN)});
}

void ShowEffectSettingsOf(const wchar_t* effect) {
    const FormDriver driver = HoldAfter({});
    (void)ShowEffectSettings(nullptr, EffectLibraryPath(effect), L"-file=\"D:\\Converted\\all.m3u8\"");
}
