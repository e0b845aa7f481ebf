// What the user wants of the machine after a conversion.
#include "engine/PowerAction.h"

#include "foundation/XHandles.h"

namespace {

void EnableShutdownPrivilege() {
    HANDLE opened = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, &opened))
        return;
    const XKernelHandle token(opened);
    TOKEN_PRIVILEGES privileges{};
    privileges.PrivilegeCount = 1;
    privileges.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
    if (LookupPrivilegeValueW(nullptr, SE_SHUTDOWN_NAME, &privileges.Privileges[0].Luid))
        AdjustTokenPrivileges(token.Get(), FALSE, &privileges, 0, nullptr, nullptr);
}

void AskTheSystem(std::int32_t action) {
    EnableShutdownPrivilege();
    switch (action) {
    case afterTurnOff:
        ExitWindowsEx(EWX_POWEROFF, 0);
        break;
    case afterHibernate:
        SetSystemPowerState(FALSE, FALSE);
        break;
    case afterStandBy:
        SetSystemPowerState(TRUE, FALSE);
        break;
    case afterLogOff:
        ExitWindowsEx(EWX_LOGOFF, 0);
        break;
    case afterRestart:
        ExitWindowsEx(EWX_REBOOT, 0);
        break;
    default:
        break;
    }
}

} // namespace

clPowerFunction powerFunction = AskTheSystem;

void PerformPowerAction(std::int32_t action) {
    if (action != afterNothing && powerFunction)
        powerFunction(action);
}
