// The dialog of naming templates as it opens, with the functions in sight, and with its refusal.
#include "FormScreens.h"

#include "forms/setup/dlgNaming.h"
#include "resources/ids.h"

namespace {

HWND Form() {
    return FindForm(ID_NAMING_TEMPLATE);
}

void Show(const wchar_t* naming, std::vector<FormDriver::Step> steps) {
    steps.insert(steps.begin(), [] { return Form() != nullptr; });
    const FormDriver driver = HoldAfter(std::move(steps));
    XString edited(naming);
    const dlgNaming form(nullptr, edited);
}

} // namespace

void ShowNaming() {
    Show(L"[artist]\\[album]\\[track] - [title]", {});
}

void ShowNamingFunctions() {
    Show(L"[album artist]\\[year] [album][IFMULTI] (disc [disc] of [disc_total])[]\\[track] - "
         L"[MAXLENGTH]40,[title][] [UPPER][genre][] [audio_quality] [encoder+]",
         {[] {
             const HWND list = FindWindowExW(Form(), nullptr, L"ListBox", nullptr);
             SendMessageW(list, LB_SETCURSEL, 41, 0);
             SendMessageW(list, LB_SETTOPINDEX, 35, 0);
             return SetFocus(list) != nullptr;
         }});
}

void ShowNamingRefused() {
    Show(L"[artist]", {[] { return PostMessageW(Form(), WM_COMMAND, IDOK, 0) != 0; },
                       [] { return FindBoxOf(Form()) != nullptr; }});
}
