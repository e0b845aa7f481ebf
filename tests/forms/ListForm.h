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
    static Step Key(WPARAM key) {
        return [key] { return GetFocus() && PostMessageW(GetFocus(), WM_KEYDOWN, key, 1); };
    }
    static void SelectAll() {
        BYTE keys[256] = {};
        keys[VK_CONTROL] = 0x80;
        SetKeyboardState(keys);
        SendMessageW(List(), WM_KEYDOWN, 'A', 1);
        keys[VK_CONTROL] = 0;
        SetKeyboardState(keys);
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
    // Opens the context menu by a key and takes its command number `downs`.
    static void AskMenu(std::vector<Step>& steps, int downs) {
        steps.emplace_back([] {
            return PostMessageW(List(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(List()),
                                MAKELPARAM(-1, -1)) != 0;
        });
        steps.emplace_back([downs] {
            if (!FindWindowW(L"#32768", nullptr))
                return false;
            for (int i = 0; i < downs; ++i)
                PostMessageW(Form(), WM_KEYDOWN, VK_DOWN, 0);
            return PostMessageW(Form(), WM_KEYDOWN, VK_RETURN, 0) != 0;
        });
        steps.emplace_back([] {
            if (FindWindowW(L"#32768", nullptr)) // still open when the command is disabled
                PostMessageW(Form(), WM_KEYDOWN, VK_ESCAPE, 0);
            return !FindWindowW(L"#32768", nullptr);
        });
    }
};
