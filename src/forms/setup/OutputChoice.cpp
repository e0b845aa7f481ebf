#include "forms/setup/OutputChoice.h"

#include "foundation/XNumberText.h"
#include "host/CodecHandler.h"

clOutputChoice AllowedChoice(clOutputChoice choice, const clOutputLimits& limits) {
    if (limits.noSameFolder && choice.original) {
        choice.original = false;
        if (!limits.noChosenFolder)
            choice.folder = true;
    }
    if (limits.noChosenFolder && (choice.folder || choice.dynamic)) {
        choice.folder = choice.dynamic = false;
        if (!limits.noSameFolder)
            choice.original = true;
    }
    return choice;
}

clOutputEnabled EnabledControls(const clOutputChoice& choice, const clOutputLimits& limits) {
    clOutputEnabled enabled;
    enabled.original = !limits.noSameFolder;
    enabled.folder = enabled.dynamic = !limits.noChosenFolder;
    enabled.folderList = enabled.folder && (choice.folder || choice.dynamic);
    enabled.naming = enabled.dynamic && choice.dynamic;
    return enabled;
}

std::uint32_t OutputModeOf(const clOutputChoice& choice) {
    if (choice.dynamic)
        return outputDynamic;
    return choice.folder ? outputChosenFolder : outputSourceFolder;
}

clOutputChoice ChoiceOfMode(std::uint32_t mode) {
    return {mode == outputSourceFolder, mode == outputChosenFolder, mode == outputDynamic};
}

void FolderHistory(XStringArray& history, const XString& current, const XStringArray& listed) {
    history.Clear();
    history.AddString(current);
    for (const XString& folder : listed)
        if (history.Count() < historyLength && folder != current)
            history.AddString(folder);
}

bool IsRestoredFolder(const XString& path) {
    return !path.IsEmpty() && !path.StartsWith(L"\\\\");
}

XString ChangeMessage(bool locationChanged, bool effectsChanged) {
    XString message;
    if (locationChanged)
        message = L"Output Location";
    if (effectsChanged)
        message += message.IsEmpty() ? L"DSP Effects" : L", DSP Effects";
    if (!message.IsEmpty())
        message += L" Changed";
    return message;
}

XString FileCountText(std::int64_t count) {
    return L"Converting " + FormatInt(count) + (count == 1 ? L" File" : L" Files");
}
