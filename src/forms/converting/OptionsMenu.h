// The popup behind the button "Options" and the settings that its commands change.
#pragma once

#include "engine/PowerAction.h"
#include "foundation/XHandles.h"

#include <cstdint>

class clOptionsMenu {
public:
    void Load(); // the menu, and the stored settings
    // Opens it at a point of the screen; the commands go to `owner`.
    void Show(HWND owner, int x, int y);
    // Carries out one command and keeps the checks in step. False: not one of this menu's.
    bool Command(int id);
    [[nodiscard]] HMENU Popup() const noexcept; // borrowed

    std::uint32_t priority = 0;                  // clWorkerPriority; stored
    std::int32_t afterConversion = afterNothing; // clAfterConversion; not stored
    bool skipFinished = false;                   // stored
    bool showErrorLog = true;                    // stored as its reverse
    bool showInformationLog = false;             // stored

private:
    void UpdateChecks();
    XMenu menu;
};
