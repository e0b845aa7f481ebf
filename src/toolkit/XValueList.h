// The value list: one column of rows in an owner-drawn list box, each a caption and a value of its
// own kind, with a real edit field, combo box or button over the selected row.
#pragma once

#include "foundation/XArray.h"
#include "toolkit/XBitmap.h"
#include "toolkit/XDisplayList.h"
#include "toolkit/XSubClassCtrl.h"
#include "toolkit/XWindow.h"

#include <windows.h>

#include <commctrl.h>

#include <cstdint>

class XValueList;

enum clValueKind : std::uint32_t {
    valueText = 0,    // caption, value and button; follows a changed Value at once
    valuePlain = 1,   // caption and value as they were when added
    valueLink = 2,    // a double click opens the value
    valueSection = 3, // a heading with a rule
    valueBanner = 4,  // as the first row, nothing is dragged past it
    valueEdit = 5,
    valueCombo = 6, // free text with prefix completion
    valueDropList = 7,
    valueCheck = 8, // Value: "1" is on, empty is off
    valueRadio = 9, // Value: n is an off button of group n, -n its on button
};

// `row` is the index. The callback may change the list, this row included; while an edit field runs
// on the row, its text and not Value is to be set, since that replaces Value at the end.
using XValueCallback = void (*)(XValueList& list, int row);

// What AddRow takes. Positions and sizes are pixels at 96 dpi, scaled unless the list has `Pixels`;
// positions may carry anchors (XCoordinate.h). Colours are 0x00BBGGRR.
struct clValueRowDesc {
    std::uint32_t Kind = valueText;
    XString Caption;
    std::int32_t CaptionX = 0;    // 0: the list's
    std::int32_t CaptionSize = 0; // font height, 0: the list's
    COLORREF CaptionColour = 0;
    bool CaptionBold = false, CaptionUnderline = false, Disabled = false, CaptionItalic = false;
    XString Value;
    std::int32_t ValueX = 0; // 0: the list's
    COLORREF ValueColour = 0;
    std::int32_t ValueWidth = 0; // 0: up to the row's end
    std::int32_t Lines = 0;      // above 1: an edit field of so many lines; 0 for one line
    HICON Icon = nullptr;        // extra icon at the left; borrowed, the row keeps a copy
    std::int32_t IconX = 0;
    std::int32_t CheckX = 0; // of the check or radio icon, 0: the list's CaptionX
    XStringArray Choices;    // of a combo box
    XString ButtonText;      // not empty: the row has a button
    XValueCallback OnButton = nullptr;
    XValueCallback OnChange = nullptr; // typed, chosen, checked or set
    std::uint64_t UserData = 0;
};

struct clValueRow {
    std::uint32_t Kind = valueText;
    XString Caption;
    std::int32_t CaptionX = 0, ValueX = 0; // display list coordinates, scaled
    XString Value;                         // to be changed in place; then XValueList::Redraw
    bool Disabled = false;
    XDisplayList Records;
    XStringArray Choices;
    XString ButtonText;
    XValueCallback OnButton = nullptr;
    XValueCallback OnChange = nullptr;
    std::int32_t Lines = 0;
    std::int32_t IconX = 0;      // of the check or radio icon, scaled
    std::int32_t ValueWidth = 0; // scaled
    std::uint64_t UserData = 0;  // the caller's
};

// Handles of one size, any of them null. Without an icon for disabled rows these show the other.
struct clValueIcons {
    HICON CheckOn = nullptr, CheckOff = nullptr, CheckOnDisabled = nullptr, CheckOffDisabled = nullptr;
    HICON RadioOn = nullptr, RadioOff = nullptr, RadioOnDisabled = nullptr, RadioOffDisabled = nullptr;
};

// Rows and positions start at 0; a row out of range is ignored by every operation. A form hands its
// messages to OnParentMessage in its PreMessage, and adds rows only after SetIcons if it has rows
// of checks or radios. The typed text is in the row's Value whenever OnChange runs, and at the
// latest when the control closes; adding, removing, moving and clearing close it.
// Keys: arrows, pages, Home and End select; blank checks; Tab goes from the value to the row's
// button and then on.
class XValueList : public XSubClassCtrl {
public:
    // The control over the selected row: an edit field or combo box, a button, or both.
    class clValueControl : public XSubClassCtrl {
    public:
        explicit clValueControl(XValueList& list) : list(list) {}
        LRESULT OnMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                          std::uint32_t& handled) override;

        // Closes a running control, with commit, and opens the one of the selected row, if that has
        // any; an edit field or combo box takes the focus.
        void Renew();
        // Takes the typed text into the row. Above 0 if the list is still to tell of a change by
        // OnValueChanged, which is never so for rows that tell it by OnChange.
        int Commit();
        int Close(); // Commit, then the windows end; the focus goes from them to the list box
        void Invalidate();
        void MoveWithRow(); // to where row `Row` is now

        int Row = -1;          // -1: idle
        HWND Window = nullptr; // the edit field or combo box
        HWND Button = nullptr;

    private:
        friend class XValueList;
        // The button of a row, so that keys reach it and lead on from it.
        class _Button : public XSubClassCtrl {
        public:
            explicit _Button(XValueList& list) : list(list) {}
            LRESULT OnMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                              std::uint32_t& handled) override;

        private:
            XValueList& list;
        };
        struct Places {
            RECT window, button;
        };

        void OpenWindow(const clValueRow& row, const RECT& place);
        void OpenButton(const clValueRow& row, const RECT& place);
        [[nodiscard]] Places FindPlaces(const clValueRow& row) const;
        void TakeChoice(); // an entry just chosen from the list of a combo box with free text
        [[nodiscard]] bool OnKeyDown(WPARAM key);
        [[nodiscard]] bool OnKeyUp(WPARAM key);
        [[nodiscard]] HWND InnerEdit() const; // of a combo box with free text, else Window

        XValueList& list;
        _Button buttonKeys{list};
    };

    XValueList();
    ~XValueList() override; // Clear

    LRESULT OnMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled) override;

    virtual void OnSelect(); // the user selected another row, by mouse or by typing its first letters
    virtual void OnValueChanged(int row);
    virtual void OnContextMenu(int x, int y); // screen pixels; the clicked row is selected
    virtual void OnDoubleClick(int row);

    // Places in dialog units of `parent`, `captionX`, `valueX` and `rowHeight` in pixels at 96 dpi;
    // with `pixels` all in pixels of the screen. `parent` hands on its messages from now on:
    // already this call needs them for the height of rows.
    void Create(int x, int y, int width, int height, HWND parent, int captionX, int valueX, int rowHeight,
                bool pixels = false);
    // Takes the icons over.
    void SetIcons(const clValueIcons& icons);
    // Lets the user drag rows; MoveRow tells nobody, the order is that of the rows.
    void EnableDragging();

    // -1 appends.
    void AddRow(const clValueRowDesc& description, int position = -1);
    void RemoveRow(int row);
    void Clear();
    // The row ends before the one that was at `to`; the row count stands for the end. The selection
    // does not move along.
    void MoveRow(int from, int to);

    [[nodiscard]] int RowCount() const noexcept { return static_cast<int>(Rows.Count()); }
    [[nodiscard]] int SelectedRow() const; // -1: none
    void SelectRow(int row);               // -1: none. Scrolls it into view; without OnSelect
    [[nodiscard]] bool IsChecked(int row) const;
    void SetChecked(int row, bool on); // without OnChange
    [[nodiscard]] int RowAtCursor() const;
    void Redraw(); // of the list box and the control, after a change of rows in place

    // To be called from the parent's PreMessage for every message.
    LRESULT OnParentMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled);

    HWND Parent = nullptr;
    HWND List = nullptr;
    std::uint32_t ControlId = 0;
    UINT DragMessage = 0; // 0: no dragging
    std::uint8_t DragAllowed = 0;
    std::int32_t DragFrom = -1;
    std::uint8_t Pixels = 0;
    std::int32_t RowHeight = 0;            // pixels of the screen
    std::int32_t CaptionX = 0, ValueX = 0; // as given to Create
    std::int32_t CaptionSize = 13, ValueSize = 13;
    XBitmap Buffer; // the image of one row
    XIcon CheckOn, CheckOff, CheckOnDisabled, CheckOffDisabled;
    XIcon RadioOn, RadioOff, RadioOnDisabled, RadioOffDisabled;
    XArray<clValueRow> Rows;
    XStringArray RowTexts;         // parallel to Rows: what the list box searches by keyboard
    clValueRow* Current = nullptr; // the row last touched
    clValueControl Control{*this};

    // How a link is opened, here by the shell.
    using LinkOpener = void (*)(HWND owner, const wchar_t* target);
    LinkOpener OpenLink;

private:
    friend class clValueControl;

    // The low 16 bits of a size to pixels of the screen; anchors stay.
    [[nodiscard]] std::int32_t Scale(std::int32_t value) const;
    [[nodiscard]] bool IsRow(int row) const noexcept { return row >= 0 && row < RowCount(); }
    [[nodiscard]] RECT ItemRect(int row) const; // client pixels of the list box
    void CloseControl();                        // tells of a change that the commit found

    void FillRecords(clValueRow& row, const clValueRowDesc& description);
    void AddTextRecords(clValueRow& row, const clValueRowDesc& description);
    void AddButtonRecords(clValueRow& row);
    void AddCheckRecords(clValueRow& row);
    [[nodiscard]] static int TextWidth(const wchar_t* text, int size, bool bold); // in the default face
    void ReplaceIcon(XIcon& kept, HICON given);

    void DrawItem(const DRAWITEMSTRUCT& draw);
    void PaintRow(clValueRow& row, int index, UINT itemState, int width, int height);
    void SetTexts(clValueRow& row, bool selected, int width);
    void EraseBelow(HDC dc) const; // the rows paint themselves

    [[nodiscard]] bool OnKeyDown(WPARAM key);
    [[nodiscard]] bool OnKeyUp(WPARAM key);
    void OnRightUp(LPARAM point);
    void OnContextKey();
    void OnChildCommand(HWND child, UINT code);
    [[nodiscard]] bool TakesTab() const; // whether Tab leads to the row's button
    void PressRow(int row);              // a check toggles, a radio is set; then OnChange

    void OnListCommand(UINT code);
    void OnParentClick();
    [[nodiscard]] bool IsBanner(int row) const; // a first row that nothing passes
    LRESULT OnDragMessage(const DRAGLISTINFO& info);
    LRESULT OnDragging(const DRAGLISTINFO& info);
    void OnDropped(const DRAGLISTINFO& info);

    bool creating = false;
};

// Holds back the drawing of the list box while many rows come: adding is then some 20 times as fast.
class XValueListFill {
public:
    explicit XValueListFill(XValueList& list);
    ~XValueListFill();
    XValueListFill(const XValueListFill&) = delete;
    XValueListFill& operator=(const XValueListFill&) = delete;

private:
    XValueList& list;
};
