// The set-up form with each encoder's panel and each output mode, and what opens from its encoder list.
#include "FormScreens.h"

#include "forms/setup/frmConvertToOpt.h"
#include "host/Settings.h"
#include "resources/ids.h"

namespace {

constexpr wchar_t effects[] =
    L"-dspeffect1=\"Playlist Writer=\" -dspeffect2=\"Batch Report=-file={qt}D:\\Converted\\report.txt{qt}\"";
constexpr wchar_t profile[] = L"Portable player, small files \"mp3 (Lame)\"";

void Store(const wchar_t* item, std::uint32_t mode, const wchar_t* folder, const wchar_t* chain) {
    clRecipe recipe;
    recipe.mode = mode;
    recipe.folder = folder;
    recipe.naming = L"[album artist]\\[album]\\[track] - [title]";
    recipe.effects = chain;
    WriteRecipe(item, recipe);
}

void StoreAll() {
    Store(L"Wave", outputSourceFolder, L"", L"");
    Store(L"FLAC", outputChosenFolder, L"D:\\Music archive\\Lossless, from the shelves in the hall\\2024\\",
          L"");
    Store(L"mp3 (Lame)", outputDynamic, L"C:\\Converted Music\\", effects);
    Store(profile, outputDynamic, L"C:\\Converted Music\\", effects);
    RegWriteDword(1, Setting::allowProfiles);
}

HWND Form() {
    const HWND form = FindForm(ID_ENCODER_LIST);
    return form && IsWindowVisible(form) ? form : nullptr;
}

bool Choose(const wchar_t* item) {
    const HWND list = Form() ? GetDlgItem(Form(), ID_ENCODER_LIST) : nullptr;
    if (!list)
        return false;
    const LRESULT row =
        SendMessageW(list, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(item));
    return row >= 0 && SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(row), 0) >= 0 &&
           PostMessageW(Form(), WM_COMMAND, MAKEWPARAM(ID_ENCODER_LIST, CBN_SELCHANGE),
                        reinterpret_cast<LPARAM>(list));
}

void ShowItem(const wchar_t* item, std::vector<FormDriver::Step> steps) {
    StoreAll();
    RegWriteString(item, Setting::lastCodec);
    clFileList files;
    for (int i = 0; i < 1234; ++i)
        files.Append();
    bool convert = false;
    const FormDriver driver = HoldAfter(std::move(steps));
    const frmConvertToOpt form(convert, files);
}

} // namespace

void ShowSetup(const wchar_t* encoder) {
    ShowItem(encoder, {[] { return Form() != nullptr; }});
}

void ShowSetupList() {
    ShowItem(L"FLAC", {[] { return Form() && SetForegroundWindow(Form()); },
                       [] {
                           const HWND list = GetDlgItem(Form(), ID_ENCODER_LIST);
                           SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
                           return SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0) != 0;
                       }});
}

void ShowSetupBalloon() {
    ShowItem(L"Wave", {[] { return Choose(L"mp3 (Lame)"); },
                       [] { return TextOf(Form(), ID_NAMING).StartsWith(L"[album artist]"); }});
}

void ShowNewProfile() {
    ShowItem(L"FLAC", {[] { return Choose(L"[Create New Profile]"); },
                       [] {
                           const HWND form = FindForm(ID_PROFILE_NAME);
                           return form && SetWindowTextW(GetDlgItem(form, ID_PROFILE_NAME), L"Archive");
                       }});
}
