// The form that asks about outputs that exist already: each one is overwritten, left out by its check
// box, or written under the name that the user gives it.
#pragma once

#include "engine/Records.h"
#include "toolkit/XListView.h"
#include "toolkit/XOwnerMenu.h"
#include "toolkit/XSizableDialog.h"

class frmOverwrite final : public XSizableDialog {
public:
    // Shows the form and returns when it has closed. `result` is 1 when `rows` hold the decision, 0
    // when the user has cancelled and they are as they were, or if the form could not be shown.
    // `rows` is borrowed, not empty, and of one encoder: all paths end as the first one does.
    frmOverwrite(int& result, HWND parent, XArray<clOverwriteItem>& rows, const wchar_t* codecName);
    ~frmOverwrite() override;

    void OnInit() override;
    void OnShow(LPARAM reason) override;
    void OnSize(int width, int height, WPARAM how) override;
    void OnMouseWheel(int x, int y, int delta, WORD keys) override;
    void OnOK() override;
    LRESULT PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                       std::uint32_t& handled) override;

private:
    class _lstView final : public XListView {
    public:
        explicit _lstView(frmOverwrite& form) : Owner(form) {}
        void OnContextMenu(int x, int y, HWND window) override;

    private:
        frmOverwrite& Owner;
    };

    void GrowToPaths();
    void FillList();
    void Layout(int width, int height);
    void LimitSize(MINMAXINFO& limits) const;
    void Commit();
    void NoToAll();

    _lstView List{*this};
    XArray<clOverwriteItem>& Rows;
    XString Extension; // with its dot; empty for a first path without one
    XString CodecName;
    XIcon RenameIcon;
    XIcon CornerIcon;
    XOwnerMenu Menu;
    XGdiObject Picture;
    bool isFilled = false;
};
