// Dragging rows of a value list to another place.
#include "toolkit/XValueList.h"

namespace {
// What the list box makes of an answer to DL_DRAGGING: the cursor it shows.
constexpr LRESULT noMark = DL_CURSORSET;
constexpr LRESULT notHere = DL_STOPCURSOR;
constexpr LRESULT moveHere = DL_MOVECURSOR;
} // namespace

void XValueList::EnableDragging() {
    if (List && MakeDragList(List))
        DragMessage = RegisterWindowMessageW(DRAGLISTMSGSTRING);
}

LRESULT XValueList::OnDragMessage(const DRAGLISTINFO& info) {
    switch (info.uNotification) {
    case DL_BEGINDRAG: {
        const int row = LBItemFromPt(List, info.ptCursor, FALSE);
        if (!IsRow(row) || IsBanner(row))
            return FALSE;
        DragFrom = row;
        DragAllowed = 0; // until it is over another place
        return TRUE;
    }
    case DL_DRAGGING:
        return OnDragging(info);
    case DL_DROPPED:
        OnDropped(info);
        break;
    case DL_CANCELDRAG:
        break;
    default:
        return 0;
    }
    DrawInsert(Parent, List, -1);
    DragFrom = -1;
    return 0;
}

bool XValueList::IsBanner(int row) const {
    return row == 0 && IsRow(0) && Rows[0].Kind == valueBanner;
}

LRESULT XValueList::OnDragging(const DRAGLISTINFO& info) {
    const int target = LBItemFromPt(List, info.ptCursor, TRUE);
    if (DragFrom < 0 || target == DragFrom || target == DragFrom + 1) {
        DrawInsert(Parent, List, -1);
        DragAllowed = 0;
        return noMark;
    }
    DragAllowed = !IsBanner(target);
    if (target >= 0)
        DrawInsert(Parent, List, target);
    return DragAllowed ? moveHere : notHere;
}

void XValueList::OnDropped(const DRAGLISTINFO& info) {
    int target = LBItemFromPt(List, info.ptCursor, FALSE);
    if (target == -1)
        target = RowCount(); // below the last row
    const int from = DragFrom;
    if (!DragAllowed || target == from || !IsRow(from) || target < 0 || target > RowCount())
        return;
    CloseControl();
    MoveRow(from, target);
    Redraw();
    SelectRow(target > from ? target - 1 : target);
}
