// Set up before the program's entry: the shared locks and the common controls.
#include "toolkit/XToolkitState.h"

#include <commctrl.h>

XToolkitState::XToolkitState() {
    WindowListLock.Create();
    SubclassLock.Create();
    TooltipLock.Create();
    constexpr DWORD allBasicClasses = 255;
    const INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), allBasicClasses};
    static_assert(sizeof(INITCOMMONCONTROLSEX) == 8);
    InitCommonControlsEx(&classes);
}

XToolkitState& Toolkit() {
    static XToolkitState state;
    return state;
}

namespace {
[[maybe_unused]] const XToolkitState& readyBeforeEntry = Toolkit();
} // namespace
