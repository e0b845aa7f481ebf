// The popup behind the button "Options" and the settings that its commands change.
#pragma once

#include "engine/PowerAction.h"
#include "toolkit/XOwnerMenu.h"

#include <cstdint>

class clOptionsMenu {
public:
    void Load(); // the menu, and the stored settings
    // Carries out one command and keeps the checks in step. False: not one of this menu's.
    bool Command(int id);
    void EnableLogs(); // there is something to view

    std::uint32_t priority = 0;                  // clWorkerPriority; stored
    std::int32_t afterConversion = afterNothing; // clAfterConversion; not stored
    bool skipFinished = false;                   // stored
    bool showErrorLog = true;                    // stored as its reverse
    bool showInformationLog = false;             // stored
    XOwnerMenu menu;                             // its button opens it; the commands go to the form

private:
    void UpdateChecks();
    bool areLogsEnabled = false;
};
