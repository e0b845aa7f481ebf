// The dialog on which the user writes a naming template: the template, an example of what it yields,
// and a list of the language's elements and functions to pick from.
#pragma once

#include "toolkit/XBitmap.h"
#include "toolkit/XValueList.h"
#include "toolkit/XWindow.h"

class dlgNaming final : public XWindow {
public:
    // Shows the dialog and returns when it has closed. `edited` is the template to begin with; it gets
    // the new one, of at most 9999 characters, only if the user closed the dialog with OK.
    dlgNaming(HWND parent, XString& edited);
    ~dlgNaming() override;

    XString naming; // as OK last read it, also when it was refused
    int result = 0; // 1: closed with OK, 0: otherwise, -1: could not be shown

    void OnInit() override;
    void OnDestroy() override;
    void OnEraseBackground(HDC dc) override;
    void OnClose() override;
    void OnOK() override;
    void OnCancel() override;
    LRESULT PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                       std::uint32_t& handled) override;

private:
    class _ValueList final : public XValueList {
    public:
        explicit _ValueList(dlgNaming& form) : form(form) {}
        void OnSelect() override; // the click on a row
        void OnDoubleClick(int row) override;
        LRESULT OnMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                          std::uint32_t& handled) override;

    private:
        dlgNaming& form;
        bool isTyping = false; // a letter is moving the selection
    };

    void SetBackground();
    void FillElementList();
    void UpdateExample();
    void OnElementClick();

    XBitmap background;
    XString shownExample;
    _ValueList elements{*this};
};
