// A window and a dialog with a value list, driven by real messages.
#pragma once

#include "Place.h"
#include "toolkit/XValueList.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

// A value list that writes down what it is told of.
class ToldList : public XValueList {
public:
    void OnSelect() override {
        told += "select " + std::to_string(SelectedRow()) + ";";
        if (nests)
            TellOfSelection();
    }
    void OnContextMenu(int, int) override { told += "menu " + std::to_string(SelectedRow()) + ";"; }
    void OnDoubleClick(int row) override { told += "double " + std::to_string(row) + ";"; }
    std::string Take() { return std::exchange(told, std::string()); }
    void TellOfSelection() { // as the list box does
        SendMessageW(Parent, WM_COMMAND, MAKEWPARAM(0, LBN_SELCHANGE), reinterpret_cast<LPARAM>(List));
    }
    std::string told;
    bool nests = false;
};

// 300 by 200 dialog units, with an edit field (1) before the list and one (2) behind it.
class ValueListForm : public XWindow {
public:
    static constexpr int rowHeight = 21; // at 96 dpi

    ~ValueListForm() override { Destroy(); }
    // 260 by 160 dialog units, shown and in front.
    void Open() {
        alignas(DWORD) static const struct {
            DLGTEMPLATE head{WS_POPUP | WS_CAPTION | WS_VISIBLE, 0, 0, 10, 10, 300, 200};
            WORD menuClassTitle[3] = {0, 0, 0};
        } dialog;
        ASSERT_TRUE(ShowModeless(&dialog.head, nullptr));
        before = AddEdit(0);
        list.Create(10, 10, 260, 160, Hwnd, 10, 150, rowHeight);
        ASSERT_NE(list.List, nullptr);
        after = AddEdit(100);
        SetForegroundWindow(Hwnd);
        SetFocus(before);
        Pump();
        list.Take();
    }
    LRESULT PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                       std::uint32_t& handled) override {
        return list.OnParentMessage(hwnd, message, wParam, lParam, handled);
    }
    clValueRow& Row(int row) { return list.Rows[row]; }
    void Add(std::uint32_t kind, const wchar_t* value, const wchar_t* caption = L"row",
             const wchar_t* button = L"", int lines = 0, int position = -1) {
        clValueRowDesc description;
        description.Kind = kind;
        description.Caption = caption;
        description.Value = value;
        description.ButtonText = button;
        description.Lines = lines;
        description.CheckX = 20;
        description.Icon = list.CheckOn.Get();
        description.OnChange = [](XValueList& told, int row) { Note(told, "change ", row); };
        description.OnButton = [](XValueList& told, int row) { Note(told, "button ", row); };
        for (const wchar_t* choice : {L"Alpha", L"Beta", L"Bella"})
            description.Choices.AddString(choice);
        list.AddRow(description, position);
    }
    std::string Order() { // the captions' first letters
        std::string order;
        for (const clValueRow& row : list.Rows)
            order += static_cast<char>(row.Caption.CharAt(1));
        return order;
    }
    std::string Checks() {
        std::string checks;
        for (int row = 0; row < list.RowCount(); ++row)
            checks += list.IsChecked(row) ? '+' : '-';
        return checks;
    }

    // All messages that are there, as the loop of a dialog handles them.
    void Pump() {
        for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);)
            if (!IsDialogMessageW(Hwnd, &message)) {
                TranslateMessage(&message);
                DispatchMessageW(&message);
            }
    }
    template <class Condition>
    bool PumpUntil(Condition condition) {
        for (const DWORD start = GetTickCount(); GetTickCount() - start < 5000;) {
            Pump();
            if (condition())
                return true;
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        }
        return false;
    }
    void Press(WPARAM key) {
        PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
        Pump();
        PostMessageW(GetFocus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
        Pump();
    }
    void Type(const wchar_t* text) { // letters and digits
        for (; *text; ++text) {
            SendMessageW(GetFocus(), WM_CHAR, *text, 1);
            SendMessageW(GetFocus(), WM_KEYUP, LOBYTE(VkKeyScanW(*text)), 1);
        }
    }
    // Pixels of the list box, from the left edge and within the row.
    POINT ScreenPoint(int row, int x, int y = 10) {
        RECT item{};
        SendMessageW(list.List, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
        POINT point{item.left + x, item.top + y};
        ClientToScreen(list.List, &point);
        return point;
    }
    void MoveMouse(POINT point) {
        SetCursorPos(point.x, point.y);
        PumpUntil([&] {
            POINT now{};
            return GetCursorPos(&now) && now.x == point.x && now.y == point.y;
        });
    }
    void Mouse(DWORD flags) {
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = flags;
        SendInput(1, &input, sizeof(input));
        Pump();
    }
    void Click(int row, int x) {
        MoveMouse(ScreenPoint(row, x));
        Mouse(MOUSEEVENTF_LEFTDOWN);
        Mouse(MOUSEEVENTF_LEFTUP);
    }

    ToldList list;
    HWND before = nullptr, after = nullptr;

private:
    static void Note(XValueList& list, const char* what, int row) {
        static_cast<ToldList&>(list).told += what + std::to_string(row) + ";";
    }
    HWND AddEdit(int x) {
        return CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, x, 0, 50, 14, Hwnd,
                               nullptr, nullptr, nullptr);
    }
};

inline XString WindowText(HWND window) {
    XString text;
    text.SetLength(GetWindowTextLengthW(window));
    GetWindowTextW(window, text.Buffer(), text.Count() + 1);
    text.FitLength();
    return text;
}
