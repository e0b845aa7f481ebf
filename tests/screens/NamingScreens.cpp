// The dialog of naming templates as it opens, with the functions in sight, and with its refusal.
#include "FormScreens.h"

#include "forms/setup/dlgNaming.h"
#include "resources/ids.h"

namespace {

HWND ListOf(HWND form) {
    return FindWindowExW(form, nullptr, L"ListBox", nullptr);
}

void ShowHeld(const wchar_t* naming, FormDriver::Step prepare, const FormDriver::Step& hold) {
    const FormDriver driver({std::move(prepare), hold}, 60000);
    XString edited(naming);
    const dlgNaming form(nullptr, edited);
}

} // namespace

void ShowNaming(const FormDriver::Step& hold) {
    ShowHeld(
        L"[artist]\\[album]\\[track] - [title]", [] { return FindForm(ID_NAMING_TEMPLATE) != nullptr; },
        hold);
}

void ShowNamingFunctions(const FormDriver::Step& hold) {
    ShowHeld(
        L"[album artist]\\[year] [album][IFMULTI] (disc [disc] of [disc_total])[]\\[track] - "
        L"[MAXLENGTH]40,[title][] [UPPER][genre][] [audio_quality] [encoder+]",
        [] {
            const HWND list = ListOf(FindForm(ID_NAMING_TEMPLATE));
            SendMessageW(list, LB_SETCURSEL, 41, 0);
            SendMessageW(list, LB_SETTOPINDEX, 35, 0);
            return SetFocus(list) != nullptr;
        },
        hold);
}

void ShowNamingRefused(const FormDriver::Step& hold) {
    ShowHeld(
        L"[artist]",
        [] {
            const HWND form = FindForm(ID_NAMING_TEMPLATE);
            return form && PostMessageW(form, WM_COMMAND, IDOK, 0);
        },
        [hold] { return FindBoxOf(FindForm(ID_NAMING_TEMPLATE)) && hold(); });
}
