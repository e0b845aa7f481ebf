// Steps that the tests of forms with a list of files share; `listId` is the list's control.
#pragma once

#include "FormDriver.h"

#include <gtest/gtest.h>

#include <commctrl.h>

template <int listId>
class ListForm : public testing::Test {
protected:
    using Step = FormDriver::Step;

    static HWND Form() { return FindForm(listId); }
    static HWND List() { return GetDlgItem(Form(), listId); }
    static bool IsOpen() { return Form() && IsWindowVisible(List()) && GetFocus() == List(); }
    static Step Press(int button) {
        return [button] { return PostMessageW(GetDlgItem(Form(), button), BM_CLICK, 0, 0) != 0; };
    }
    static bool IsEditing() { return ListView_GetEditControl(List()) != nullptr; }
    static bool IsNotEditing() { return !IsEditing(); }
    static Step Type(const wchar_t* text) {
        return [text] { return IsEditing() && SetWindowTextW(ListView_GetEditControl(List()), text); };
    }
    static bool IsChecked(int row) { return ListView_GetCheckState(List(), row) == 1; }
    static XString Cell(int row, int column = 0) {
        wchar_t text[500] = L"";
        ListView_GetItemText(List(), row, column, text, 500);
        return text;
    }
    static void AskRowMenu(std::vector<Step>& steps, int downs) { AskMenu(steps, List, downs); }
};
