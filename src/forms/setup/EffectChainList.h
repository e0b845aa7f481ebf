// The list of effects on the set-up form: a row per effect, in the order in which they run.
#pragma once

#include "toolkit/XValueList.h"

// Rows are dragged to another place once the form has called EnableDragging. A row stays what it is
// when its library is missing; it then has no icon, and a look at its settings loses them.
class EffectChainList : public XValueList {
public:
    // A right click does what the button "Add" does: the parent gets its WM_COMMAND, posted.
    void OnContextMenu(int x, int y) override;

    // The chain text (host/EffectChain.h) of the rows as they stand, and back; nothing is selected then.
    [[nodiscard]] XString ToText() const;
    void FromText(const XString& chainText);

    // Shows the effect's settings at once, then adds and selects a row: ahead of the selected row, at
    // the end if that is the last or there is none. There is no way to cancel.
    void AddEffect(const XString& libraryPath);

    // Where a right click asked for the menu, in screen pixels; it holds for one menu.
    [[nodiscard]] bool TakeMenuPoint(POINT& point);

private:
    void AddEffectRow(const XString& name, const XString& settings, const XString& libraryPath, int position);

    POINT menuPoint{};
    bool hasMenuPoint = false;
};
