// An owner-drawn combo box: rows with an icon each, drawn by display lists, and completion of what is
// typed in its edit. Styles of the control: CBS_OWNERDRAWFIXED | CBS_HASSTRINGS, not CBS_SORT.
#pragma once

#include "foundation/XArray.h"
#include "toolkit/XBitmap.h"
#include "toolkit/XDisplayList.h"
#include "toolkit/XSubClassCtrl.h"

#include <cstdint>

struct clDropRow {
    XString Text;
    XDisplayList Records;
    std::uint64_t UserData = 0;
};

// Rows are added and removed here alone, after Attach: they stand parallel to those of the combo.
class XDropList : public XSubClassCtrl {
public:
    // By the user only. OnChanging runs before OnTextChanged, for a chosen row and for typing alike.
    virtual void OnTextChanged(const XString& text);
    virtual void OnChanging();
    virtual void OnOpening();
    virtual void OnClosing();

    // Binds an existing combo and sets its row heights. With `subclassEdit` its edit completes texts
    // and Enter moves on; Detach is due while the control still exists. False without such a combo.
    bool Attach(HWND combo, bool subclassEdit);
    // `icon` is copied; null is none. `position` -1 appends. Returns the row's index, -1 on failure.
    int AddRow(const wchar_t* text, HICON icon = nullptr, int position = -1, COLORREF colour = 0);
    void RemoveRow(int index); // no effect out of range
    void Clear();
    void AddSeparator(); // a rule under the last row of now
    // The first row with exactly this text, else the first that differs in case alone. Returns its
    // index; -1 when there is none, and then no row is selected. Calls no operation.
    int SelectByText(const wchar_t* text);
    [[nodiscard]] int Selected() const; // -1 is none
    // The text of the edit, or of the selected row (empty without one).
    [[nodiscard]] XString GetText(bool fromEdit) const;
    // To be called from the form's PreMessage; returns the message's result when it sets `handled`.
    LRESULT OnParentMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled);
    LRESULT OnMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled) override;

    // The active mask of a row's list, by its state in a drawing order.
    [[nodiscard]] static std::uint32_t MaskOf(UINT itemState) noexcept;

    HWND Combo = nullptr; // borrowed
    int ControlId = 0;
    int RowHeight = 18, TextX = 26, FontSize = 13; // through ScaleToDpi, unless Pixels
    std::uint8_t Pixels = 0;
    HWND Edit = nullptr;    // the combo's; null in a list without one
    std::uint8_t Enter = 0; // Enter was pressed at the end of the text and is still down
    COLORREF RowColour = 0; // background of rows that are added; 0 is the system's window colour
    XBitmap Buffer;
    XArray<clDropRow> Rows;
    clDropRow* Current = nullptr; // last drawn

private:
    [[nodiscard]] int Scaled(int value) const;
    [[nodiscard]] COLORREF Background() const;
    void Build(clDropRow& row, HICON icon, COLORREF colour) const;
    void Draw(const DRAWITEMSTRUCT& draw);
    bool OnNotification(WORD code); // true if it was one of ours
    void Complete();
    [[nodiscard]] bool TakesEnter() const;
    void MoveOn();
};
