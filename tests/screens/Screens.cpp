// Shows one state of a form and holds it for a picture: screens STATE FLAG. The file FLAG appears
// when the state stands; the program ends when FLAG is gone. scripts/screenshots.sh takes the pictures.
#include "../forms/FormDriver.h"
#include "../support/ReportingWorker.h"
#include "FormScreens.h"
#include "engine/WorkerText.h"
#include "foundation/XFileSystem.h"
#include "host/PluginFolders.h"
#include "host/Settings.h"
#include "resources/ids.h"

#include <commctrl.h>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr wchar_t codec[] = L"FLAC";
constexpr wchar_t effect[] = L"Playlist Writer";

XString flag;

// The last step of each state: what was written to the controls is on the screen first.
bool HoldForPicture() {
    static bool isHeld = false;
    if (!isHeld) {
        const HANDLE file = CreateFileW(flag, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        isHeld = file != INVALID_HANDLE_VALUE;
        if (isHeld)
            CloseHandle(file);
    }
    if (isHeld && !IsFile(flag))
        TerminateProcess(GetCurrentProcess(), 0);
    return false;
}

FormDriver::Step Press(int button) {
    return [button] {
        const HWND form = FindForm(ID_HEADING);
        return form && PostMessageW(GetDlgItem(form, button), WM_KEYDOWN, VK_SPACE, 0) &&
               PostMessageW(GetDlgItem(form, button), WM_KEYUP, VK_SPACE, 0);
    };
}

void RunReporting(int slots, std::vector<FormDriver::Step> steps) {
    clFileList files;
    const clConvertingSeams seams = PrepareReportingBatch(files, {3 * slots, slots, 17, 120, codec, effect});
    steps.insert(steps.begin(), [] {
        const HWND form = FindForm(ID_HEADING);
        return form && !TextOf(form, ID_SPEED).IsEmpty();
    });
    const FormDriver driver = HoldAfter(std::move(steps));
    const frmConverting form(files, seams);
}

void Complete(clJobSlot& slot, const clFileItem& item) {
    PrepareSlotForFile(slot, item.sourcePath, item.outputPath, 60000);
    FreeSlot(slot);
}

void Finished() {
    clFileList files;
    clConvertingSeams seams = PrepareReportingBatch(files, {6, 2, 1, 0, codec, effect});
    seams.launch = Complete;
    const FormDriver driver = HoldAfter({[] { return FindForm(ID_BUTTON_FINISH) != nullptr; }});
    const frmConverting form(files, seams);
}

// Every second file fails, the others have something to tell.
void CompleteWithReports(clJobSlot& slot, const clFileItem& item) {
    static bool fails = false;
    PrepareSlotForFile(slot, item.sourcePath, item.outputPath, 60000);
    fails = !fails;
    AddLine(fails ? slot.errorText : slot.informationText,
            fails ? L"The source is damaged: 3 of 8,612 frames could not be read"
                  : L"The cover art was made smaller: 4 MB are too much for this format");
    FreeSlot(slot);
}

void Logs() {
    clFileList files;
    clConvertingSeams seams = PrepareReportingBatch(files, {8, 2, 1, 0, codec, effect});
    seams.launch = CompleteWithReports;
    RegWriteDword(1, Setting::displayInfo);
    const FormDriver driver = HoldAfter({[] { // the form behind has a control of the same id
        const HWND form = FindForm(ID_LOG_TREE);
        return form && TreeView_GetCount(GetDlgItem(form, ID_LOG_TREE)) > 0;
    }});
    const frmConverting form(files, seams);
}

} // namespace

FormDriver HoldAfter(std::vector<FormDriver::Step> steps) {
    steps.emplace_back(HoldForPicture);
    return FormDriver(std::move(steps), 60000);
}

namespace {

struct Screen {
    const char* name;
    void (*show)();
};
constexpr Screen screens[] = {
    {"converting", [] { RunReporting(4, {}); }},
    {"converting-16", [] { RunReporting(16, {}); }},
    {"converting-1", [] { RunReporting(1, {}); }},
    {"paused", [] { RunReporting(2, {Press(ID_BUTTON_PAUSE)}); }},
    {"options",
     [] {
         RunReporting(2, {Press(ID_BUTTON_OPTIONS), IsMenuOpen});
     }},
    {"cancel",
     [] {
         RunReporting(2, {Press(ID_BUTTON_CANCEL), [] { return FindBox(L"Cancel Conversion?") != nullptr; }});
     }},
    {"finished", Finished},
    {"logs", Logs},
    {"setup-wave", [] { ShowSetup(L"Wave"); }},
    {"setup-aiff", [] { ShowSetup(L"AIFF"); }},
    {"setup-wave64", [] { ShowSetup(L"Wave64"); }},
    {"setup-aac", [] { ShowSetup(L"m4a AAC"); }},
    {"setup-alac", [] { ShowSetup(L"ALAC"); }},
    {"setup-test", [] { ShowSetup(L"Test Conversion"); }},
    {"setup-flac", [] { ShowSetup(L"FLAC"); }},
    {"setup-mp3", [] { ShowSetup(L"mp3 (Lame)"); }},
    {"setup-list", ShowSetupList},
    {"setup-balloon", ShowSetupBalloon},
    {"new-profile", ShowNewProfile},
    {"config", ShowConfig},
    {"effects", ShowEffects},
    {"effects-menu", ShowEffectsMenu},
    {"effect-settings", [] { ShowEffectSettingsOf(L"Playlist Writer"); }},
    {"effect-processors", [] { ShowEffectSettingsOf(L"Multi-CPU Force"); }},
    {"effect-channels", [] { ShowEffectSettingsOf(L"Channels"); }},
    {"effect-volume", [] { ShowEffectSettingsOf(L"Volume"); }},
    {"effect-trim", [] { ShowEffectSettingsOf(L"Trim Silence"); }},
    {"effect-fade", [] { ShowEffectSettingsOf(L"Fade"); }},
    {"effect-replaygain", [] { ShowEffectSettingsOf(L"ReplayGain"); }},
    {"effect-resample", [] { ShowEffectSettingsOf(L"Resample"); }},
    {"effect-delete", [] { ShowEffectSettingsOf(L"Delete Source File"); }},
    {"effect-missing", [] { ShowEffectSettingsOf(L"No such effect"); }},
    {"naming", ShowNaming},
    {"naming-functions", ShowNamingFunctions},
    {"naming-refused", ShowNamingRefused},
    {"list", ShowList},
    {"list-small", ShowListSmall},
    {"list-least", ShowListLeast},
    {"list-rename", ShowListRename},
    {"list-menu", ShowListMenu},
    {"overwrite", ShowOverwrite},
    {"overwrite-small", ShowOverwriteSmall},
    {"overwrite-rename", ShowOverwriteRename},
    {"overwrite-menu", ShowOverwriteMenu},
};

} // namespace

int main(int count, char** arguments) {
    const int played = PlayReportingWorker();
    if (played >= 0)
        return played;
    if (count == 2 && XString(arguments[1]) == L"list") {
        for (const Screen& screen : screens)
            std::puts(screen.name);
        return 0;
    }
    if (count == 3) {
        const TestSettings settings;
        if (const wchar_t* root = _wgetenv(L"TM_PROGRAM")) {
            SetPluginRoot(root);
            SetDllDirectoryW(root); // what the plug-ins import stands beside the program
        }
        flag = XString(arguments[2]);
        for (const Screen& screen : screens)
            if (XString(screen.name) == XString(arguments[1]))
                screen.show();
    }
    std::fputs("usage: screens list | screens STATE FLAG\n", stderr);
    return 2;
}
