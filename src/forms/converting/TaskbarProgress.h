// Progress on the program's button of the task bar. Without such a task bar everything is idle.
#pragma once

#include "foundation/XHandles.h"

#include <cstdint>

#include <shobjidl.h>

class clTaskbarProgress {
public:
    // The message that tells a window that its button is there now.
    [[nodiscard]] static UINT ButtonCreatedMessage();

    void Connect(); // lets go of an earlier object; needs COM on this thread
    void Disconnect() { taskbar.Reset(); }
    void SetPercent(HWND window, std::int64_t percent);
    void SetState(HWND window, TBPFLAG state);

private:
    XCom<ITaskbarList3> taskbar;
};
