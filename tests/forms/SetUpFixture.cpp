#include "SetUpFixture.h"

#include "foundation/XFileSystem.h"
#include "host/HandOff.h"
#include "host/PluginFolders.h"

SetUpForm::SetUpForm() : turn(CreateMutexW(nullptr, FALSE, L"tm-test-hand-off")) {
    WaitForSingleObject(turn.Get(), 60000);
    DeleteOneFile(HandOffPath());
    root = ProgramFolder() + L"setup_fakes\\";
    SetPluginRoot(root);
    seams.openDocument = [this](const XString& target) { opened.AddString(target); };
    seams.chooseFolder = [this](HWND, const XString& selected) {
        folderShown = selected;
        return folderChosen;
    };
}

SetUpForm::~SetUpForm() {
    SetPluginRoot(nullptr);
    DeleteOneFile(HandOffPath());
    ReleaseMutex(turn.Get());
}

bool SetUpForm::Run(std::vector<Step> steps) {
    steps.insert(steps.begin(), [] { return Form() && IsWindowVisible(Form()); });
    bool convert = false;
    const FormDriver driver(std::move(steps));
    { const frmConvertToOpt form(convert, files, seams); }
    EXPECT_TRUE(driver.IsDone()) << driver.StepsDone();
    return convert;
}

bool SetUpForm::Run(std::vector<Step> steps, int button) {
    steps.push_back(Press(button));
    return Run(std::move(steps));
}

XString SetUpForm::Chosen(int list) {
    wchar_t text[600] = L"";
    const LRESULT row = SendMessageW(At(list), CB_GETCURSEL, 0, 0);
    if (row >= 0)
        SendMessageW(At(list), CB_GETLBTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text));
    return text;
}

void SetUpForm::Store(const wchar_t* item, const wchar_t* settings, std::uint32_t mode, const wchar_t* folder,
                      const wchar_t* naming, const wchar_t* effects) {
    clRecipe recipe;
    recipe.encoderSettings = settings;
    recipe.mode = mode;
    recipe.folder = folder;
    recipe.naming = naming;
    recipe.effects = effects;
    WriteRecipe(item, recipe);
}

SetUpForm::Step SetUpForm::Choose(const wchar_t* row) {
    return [row] {
        const HWND list = At(ID_ENCODER_LIST);
        const LRESULT index =
            SendMessageW(list, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(row));
        if (index < 0)
            return false;
        SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        return PostMessageW(Form(), WM_COMMAND, MAKEWPARAM(ID_ENCODER_LIST, CBN_SELCHANGE),
                            reinterpret_cast<LPARAM>(list)) != 0;
    };
}

SetUpForm::Step SetUpForm::Press(int button) {
    return [button] {
        const HWND control = At(button);
        return control && IsWindowEnabled(control) && IsWindowEnabled(Form()) &&
               PostMessageW(control, BM_CLICK, 0, 0);
    };
}

SetUpForm::Step SetUpForm::Type(int edit, const wchar_t* text) {
    return [edit, text] { return At(edit) && SetWindowTextW(At(edit), text); };
}
