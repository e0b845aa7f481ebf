// Files that a second start of the program gives to a set-up form that is already on the screen:
// through a file of their own, which both sides open alone, and a named event. Windows only.
#pragma once

#include "foundation/XHandles.h"
#include "host/clFileList.h"

// Manual reset. It exists for as long as a set-up form is on the screen; signalled: files wait.
inline constexpr wchar_t handOffEventName[] = L"evtCanAddFilesToExistingTM";

// Where the paths wait, in the format of a list file (ListFile.h).
[[nodiscard]] XString HandOffPath();

// The sender. Gives the sorted paths of a list file to the set-up form that is there, behind those
// that still wait; the list file stays. False: there is no form, or the waiting file is busy or
// can't be written, and nothing was handed over. A list that can't be read hands over no paths.
[[nodiscard]] bool TryHandOff(const XString& listPath);

// The set-up form's event, not signalled unless another form's files wait. Null on failure.
[[nodiscard]] XKernelHandle MakeHandOffEvent();

// The receiver, to be called by the form's timer; never waits. True: a list was taken, new paths
// are appended to `files`, the event is reset and the waiting file is gone; the form is to show its
// count and come to the foreground. False: nothing waits, or it is busy and the next tick will do.
[[nodiscard]] bool ReceiveHandOff(HANDLE event, clFileList& files);
