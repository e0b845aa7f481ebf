// A report-mode list control whose notifications are operations, with what all lists share: a click on
// a check box, or Space, goes for all selected rows, F2 renames, Ctrl+A selects all, columns keep a least
// width. A form derives from it, sets `List` and calls Attach in its OnInit, and hands all its messages to
// OnParentMessage first. Forms' thread only; rows and columns count from 0.
#pragma once

#include "foundation/XArray.h"
#include "toolkit/XFont.h"
#include "toolkit/XSubClassCtrl.h"

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <vector>

inline constexpr UINT listImageUnchecked = 1; // state images of rows with check boxes
inline constexpr UINT listImageChecked = 2;

class XListView : public XSubClassCtrl {
public:
    // The control's own label edit serves column 0; this one serves any cell, see EditMode.
    class clValueControl final : public XSubClassCtrl {
    public:
        ~clValueControl() override { Close(); }

        // Ends an edit that runs, with its text stored, selects the row and edits the cell.
        void Begin(int row, int column, HWND target, XListView& owner);
        void Commit(); // stores a changed text and tells the owner; the edit stays
        void Close();  // without a commit; the focus goes back to the list
        LRESULT OnMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                          std::uint32_t& handled) override;

        int Row = -1; // -1 when idle
        int Column = 0;
        HWND Edit = nullptr;   // null when idle
        HWND Target = nullptr; // the list
        XFont Font;
        XListView* Owner = nullptr; // borrowed

    private:
        bool KeyDown(WPARAM key);
        void MoveTo(int row, int column);
    };

    ~XListView() override;

    // The operations. What is not told here does nothing by default.
    virtual bool CanEditCell(int row, int column); // of the in-place editor; true
    // `changed` holds LVIF_ bits, the states LVIS_ bits.
    virtual void OnItemChanged(int row, int column, UINT changed, UINT oldState, UINT newState);
    virtual void OnSelectChanged(int row, int column, bool selected);
    virtual void OnCheckChanged(int row, bool checked);
    virtual bool OnBeginLabelEdit(int row); // true refuses the edit; false
    // The text stands in the cell already; false keeps the control from storing its own. True.
    virtual bool OnEndLabelEdit(int row, const XString& text);
    virtual void OnCellEdited(int row, int column, const XString& text);
    virtual void OnLabelEditCancelled(int row);
    virtual void OnBeginDrag(const NMLISTVIEW& notification);
    virtual void OnKeyDown(WORD key);
    virtual bool CanRename();    // true
    virtual bool CanSelectAll(); // true
    virtual XString GetInfoTip(int row);
    virtual bool OnMarqueeBegin(); // true refuses the marquee; false
    virtual void OnColumnClick(int column);
    virtual void OnClick(int row, int column, POINT point); // client pixels, as in the next three
    // Before all but the check click; `handled` keeps the press from the control. Clears it.
    virtual void OnLeftDown(int row, int x, std::uint32_t& handled);
    virtual void OnDoubleClick(int row, int column, POINT point);
    virtual void OnRightClick(int row, int column, POINT point);
    virtual void OnRightDoubleClick(int row, int column, POINT point);
    virtual void OnContextMenu(int x, int y, HWND window); // screen pixels; both -1 from the keyboard
    virtual void OnColumnResized(int column);
    virtual void OnColumnsReordered();
    virtual void OnDrawItem(const DRAWITEMSTRUCT& draw);
    virtual void OnScroll(WORD code, WORD position);

    // To be called first from the form's PreMessage; returns the message's result when it sets `handled`.
    LRESULT OnParentMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled);
    LRESULT OnMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled) override;

    void AddColumn(const wchar_t* title, int width, int format); // pixels; LVCFMT_LEFT or LVCFMT_RIGHT
    void SetMinimumWidth(int column, int width);                 // pixels, 0 for none
    void SetCellText(const wchar_t* text, int row, int column);
    [[nodiscard]] XString GetCellText(int row, int column) const; // cut at 999 characters
    // Also moves the focus and the selection mark when exclusive.
    void SelectRow(int row, bool exclusive);
    [[nodiscard]] std::vector<int> GetSelectedRows() const; // ascending
    [[nodiscard]] int RowAtCursor() const;                  // -1 for none
    [[nodiscard]] int RowCount() const;

    // What both lists of files need. An `image` of -1 is left out; -1 on failure.
    int InsertRow(int row, const wchar_t* text, int image) const;
    // The system's small icons. Not with LVS_SHAREIMAGELISTS: the control would keep its check boxes.
    void UseShellIcons();
    [[nodiscard]] bool IsChecked(int row) const;
    void SetChecked(int row, bool checked) const; // -1 for all rows
    // Where a menu belongs: the point that OnContextMenu was given, or below the focused row.
    [[nodiscard]] POINT MenuPoint(int x, int y) const;

    HWND List = nullptr;        // borrowed
    std::uint8_t Updating = 0;  // while 1 no change of a row calls an operation
    XPointerSlots Columns;      // 64-bit words; the low 32 bits are the column's minimum width
    std::uint32_t EditMode = 0; // 0: label edit alone; 1: the editor on column 0; 2: on all columns
    clValueControl Editor;

private:
    friend class clValueControl;

    bool borrowsImages = false;

    LRESULT Ask(UINT message, WPARAM wParam, LPARAM lParam) const;
    [[nodiscard]] int NextRow(int row, UINT kind) const; // LVNI_; -1 for none
    [[nodiscard]] UINT RowState(int row, UINT mask) const;
    void Empty();
    LRESULT OnListNotify(const NMHDR* header, std::uint32_t& handled);
    LRESULT OnHeaderNotify(const NMHEADERW& header, std::uint32_t& handled);
    LRESULT BeginLabelEdit(int row);
    LRESULT EndLabelEdit(const NMLVDISPINFOW& info);
    void FillInfoTip(NMLVGETINFOTIPW& tip);
    void KeyPressed(WORD key);
    void Rename();
    void SelectAll();
    void ItemChanged(const NMLISTVIEW& change);
    [[nodiscard]] bool RefuseWidth(const NMHEADERW& header);
    [[nodiscard]] bool MayEdit(int row, int column);
    [[nodiscard]] POINT CursorPoint() const;
    [[nodiscard]] int CheckBoxEdge() const;
    [[nodiscard]] bool IsOnCheckBox(POINT point) const;
    bool CheckClick();
    void CheckWithSelection(int row);
    void CheckMany(const std::vector<int>& rows, bool checked);
    void LeaveMany(int keptRow);
    void LeftDown(POINT point, std::uint32_t& handled);
    bool SpacePressed();
};

// A bulk change: while it stands nothing is drawn, no operation is called, and the list's parent gets
// no message of it. One inside another does nothing; one list of the process at a time has full speed.
class XListUpdate {
public:
    explicit XListUpdate(XListView& list);
    ~XListUpdate();
    XListUpdate(const XListUpdate&) = delete;
    XListUpdate& operator=(const XListUpdate&) = delete;

private:
    XListView& list;
    bool isOuter;
    HWND parent = nullptr;
};
