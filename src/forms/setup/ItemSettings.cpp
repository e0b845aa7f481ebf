// The current item of the set-up form: its panel, and what belongs to the item besides.
#include "contract/Keys.h"
#include "forms/FormCaption.h"
#include "forms/setup/frmConvertToOpt.h"
#include "host/Settings.h"
#include "resources/ids.h"

namespace {

constexpr POINT panelPlace = {21, 33};    // dialog units
constexpr POINT balloonOffset = {30, 10}; // pixels, from the control's upper left corner
constexpr std::uint32_t balloonHoldMs = 2000;
constexpr int balloonIcon = 16; // pixels

} // namespace

void frmConvertToOpt::OnEncoderChanged(bool first) {
    const XString item = EncoderList.GetText(false);
    if (item == CurrentItem)
        return;
    CloseEncoderPanel(true);
    PluginCreateBlock block{};
    if (clZtCodecHandler::LoadEncoder(EncoderNameOf(item), Encoder, &block))
        OpenPanel(item);
    LoadItemSettings(first);
}

void frmConvertToOpt::OpenPanel(const XString& item) {
    const XString settings = RegReadString(Setting::encoderSettings, nullptr, EncoderKeyPath(item));
    RECT place = {panelPlace.x, panelPlace.y, 0, 0};
    MapDialogRect(Hwnd, &place);
    const HWND last = GetWindow(GetTopWindow(Hwnd), GW_HWNDLAST);
    Encoder.ShowConfig(Hwnd, place.left, place.top, settings);
    CurrentItem = item;
    // New windows stand last; Tab is to lead from the list into the panel.
    HWND before = EncoderList.Combo;
    for (HWND made = GetWindow(last, GW_HWNDNEXT); made;) {
        const HWND next = GetWindow(made, GW_HWNDNEXT);
        if (SetWindowPos(made, before, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE))
            before = made;
        made = next;
    }
}

XString frmConvertToOpt::CloseEncoderPanel(bool save) {
    if (CurrentItem.IsEmpty())
        return XString();
    XString settings = Encoder.RemoveConfig(Hwnd);
    if (save)
        SaveItemSettings(CurrentItem, settings);
    Encoder.DestroyInstance();
    CurrentItem.Clear();
    return settings;
}

XString frmConvertToOpt::LiveEncoderSettings() const {
    return CurrentItem.IsEmpty() ? XString() : Encoder.RemoveConfig(ztKeepPanel);
}

void frmConvertToOpt::SaveItemSettings(const XString& item, const XString& encoderSettings) {
    clRecipe recipe;
    recipe.encoderSettings = encoderSettings;
    recipe.mode = OutputModeOf(OutputChoice());
    recipe.folder = OutputFolder();
    recipe.naming = NamingTemplate();
    recipe.effects = EffectList.ToText();
    WriteRecipe(item, recipe);
}

void frmConvertToOpt::LoadItemSettings(bool first) {
    const std::uint32_t shownMode = OutputModeOf(OutputChoice());
    const XString shownFolder = FolderList.GetText(false);
    const XString shownChain = EffectList.ToText();
    DisableSameFolder = DisableConvertToFolder = 0;
    UpdateOutputControls();

    const clRecipe recipe = ReadRecipe(EncoderList.GetText(false));
    ShowOutputChoice(ChoiceOfMode(recipe.mode));
    const XString folder = AddFolderToList(recipe.folder, false);
    SetWindowTextW(Control(ID_NAMING), recipe.naming);
    if (FolderList.SelectByText(folder) < 0)
        SendMessageW(FolderList.Combo, CB_SETCURSEL, static_cast<WPARAM>(FolderList.Rows.Count() - 1), 0);
    EffectList.FromText(recipe.effects);
    if (!first)
        ShowChanges(recipe.mode, shownMode, folder != shownFolder, EffectList.ToText() != shownChain);

    DisableSameFolder = AnswersYes(ZtKey::disableSameFolder);
    DisableConvertToFolder = AnswersYes(ZtKey::disableConvertToFolder);
    UpdateOutputControls();
}

bool frmConvertToOpt::AnswersYes(const wchar_t* key) const {
    PluginParams params{};
    return Encoder.AskGet(key, params) != 0;
}

// Points at the first of what the change of the item changed besides.
void frmConvertToOpt::ShowChanges(std::uint32_t mode, std::uint32_t shownMode, bool folderChanged,
                                  bool effectsChanged) {
    const bool modeChanged = mode != shownMode;
    const XString message = ChangeMessage(modeChanged || folderChanged, effectsChanged);
    if (message.IsEmpty())
        return;
    int control = ID_OPTIONS_TAB;
    if (modeChanged)
        control = mode == outputSourceFolder ? ID_OUTPUT_ORIGINAL : ID_OUTPUT_FOLDER;
    else if (folderChanged)
        control = ID_OUTPUT_FOLDER;
    RECT place{};
    GetWindowRect(Control(control), &place);
    const XIcon icon(LoadProgramIcon(ID_ICON_INFORMATION, balloonIcon));
    clTipDesc balloon;
    balloon.FixedX = place.left + balloonOffset.x;
    balloon.FixedY = place.top + balloonOffset.y;
    balloon.Text = message;
    balloon.Hold = balloonHoldMs;
    balloon.Icon = icon.Get();
    ToolTip.Show(balloon);
}

// What the converting form reads, and what the next showing of this form starts with.
void frmConvertToOpt::SaveFormState() {
    ToolTip.Hide();
    CloseEncoderPanel(true);
    if (!EncoderList.IsOnCommand())
        RegWriteString(EncoderList.GetText(false), Setting::lastCodec);
    SaveFolders();
}
