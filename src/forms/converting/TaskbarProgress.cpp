// The task bar object and its calls.
#include "forms/converting/TaskbarProgress.h"

namespace {
bool HasTaskbarProgress() {
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof(version);
    return GetVersionExW(&version) && version.dwMajorVersion >= 6 && version.dwMinorVersion >= 1;
}
} // namespace

UINT clTaskbarProgress::ButtonCreatedMessage() {
    static const UINT message = RegisterWindowMessageW(L"TaskbarButtonCreated");
    return message;
}

void clTaskbarProgress::Connect() {
    if (!HasTaskbarProgress())
        return;
    taskbar.Reset();
    void** object = taskbar.Receive();
    if (FAILED(CoCreateInstance(CLSID_TaskbarList, nullptr, CLSCTX_INPROC_SERVER, IID_ITaskbarList3, object)))
        *object = nullptr;
    if (taskbar)
        taskbar->HrInit();
}

void clTaskbarProgress::SetPercent(HWND window, std::int64_t percent) {
    if (taskbar)
        taskbar->SetProgressValue(window, static_cast<ULONGLONG>(percent), 100);
}

void clTaskbarProgress::SetState(HWND window, TBPFLAG state) {
    if (taskbar)
        taskbar->SetProgressState(window, state);
}
