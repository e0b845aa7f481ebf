// Asks for the name of a new profile of one encoder. It stores nothing.
#pragma once

#include "foundation/XArray.h"
#include "toolkit/XWindow.h"

class frmNewProfile final : public XWindow {
public:
    // Shows the form and returns when it has closed. `itemText`: of the new profile, empty if the user
    // cancelled. `existing`: item texts that are taken, compared without regard to the case of A-Z.
    frmNewProfile(HWND parent, XString& itemText, const XString& encoderName, const XStringArray& existing);
    ~frmNewProfile() override;

    void OnClose() override;
    void OnCancel() override;
    void OnShow(LPARAM reason) override;
    LRESULT PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                       std::uint32_t& handled) override;
    void OnOK() override;

private:
    [[nodiscard]] XString TypedName() const; // blanks at its ends belong to it

    XString Result;
    XString EncoderName;
    XStringArray Existing;
};
