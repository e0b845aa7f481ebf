// The form that shows what the workers reported: a tree with a root per file and a child per line,
// on up to two tabs. A member of the form that owns the logs; its constructor shows nothing.
#pragma once

#include "engine/Records.h"
#include "forms/review/DialogKeys.h"
#include "forms/review/LogTexts.h"
#include "foundation/XTempFile.h"
#include "toolkit/XOwnerMenu.h"
#include "toolkit/XSizableDialog.h"
#include "toolkit/XTabPage.h"
#include "toolkit/XToolTip.h"
#include "toolkit/XTreeView.h"

#include <commctrl.h>

struct ImageListKind {
    using Value = HIMAGELIST;
    static Value None() noexcept { return nullptr; }
    static void Close(Value v) noexcept { ImageList_Destroy(v); }
};

// Starts a process of this command line, which the call may write to; true if it runs. Tests put
// their own function here.
using clProgramStart = bool (*)(XString& commandLine);
extern clProgramStart startProgram;

// The owner sets the three values below, then shows the form, as often as it likes: each showing is
// a new life of the window on the one object. Not to be shown with two empty logs. All calls come
// from the thread of forms; the logs may grow while the form is open, they are read when it opens
// and when the user changes the tab.
class frmErrorsInfo final : public XSizableDialog {
public:
    frmErrorsInfo();
    ~frmErrorsInfo() override;

    // Blocks until the form has closed; one that is still open from ShowDuringBatch goes first.
    void ShowEndOfBatch(HWND owner);
    // Returns at once; the loop of the owner's dialog serves the form, its keyboard too. One that is
    // open is shown anew, with the logs as they are now, in its place.
    void ShowDuringBatch(HWND owner);

    const XArray<clLogEntry>* ErrorLog = nullptr; // both borrowed, either may be null
    const XArray<clLogEntry>* InfoLog = nullptr;
    bool CanReconvert = false; // offer to convert the failed files again

    void OnInit() override;
    void OnDestroy() override;
    void OnShow(LPARAM reason) override;
    void OnSize(int width, int height, WPARAM how) override;
    void OnMouseWheel(int x, int y, int delta, WORD keys) override;
    void OnOK() override;
    LRESULT PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                       std::uint32_t& handled) override;

private:
    class _TabPage final : public XTabPage {
    public:
        explicit _TabPage(frmErrorsInfo& form) : form(form) {}
        void OnTabSelected(int index) override;

    private:
        frmErrorsInfo& form;
    };
    class _TreeView final : public XTreeView {
    public:
        explicit _TreeView(frmErrorsInfo& form) : form(form) {}
        void OnContextMenu(int x, int y) override;

    private:
        frmErrorsInfo& form;
    };

    void End();
    void LoadImages();
    void AddTabs();
    void OfferReconvert();
    void Layout(int width, int height);
    void LimitSize(MINMAXINFO& limits) const;
    void FillTree(int tab);
    void Copy();
    void Reconvert();
    bool Command(int id);
    bool TreeKey(const NMTVKEYDOWN& key);

    _TabPage Tabs{*this};
    _TreeView Tree{*this};
    bool HasErrors = false;
    bool HasInfo = false;
    bool HasBoth = false;
    XOwned<ImageListKind> Images;
    XIcon CornerIcon;
    XOwnerMenu Menu;
    XArray<XToolTip> Tips; // of the buttons
    XToolTip CopiedTip;
    clDialogKeys keys; // while shown without blocking
    bool isFilled = false;
    bool isPassingWheel = false;
};
