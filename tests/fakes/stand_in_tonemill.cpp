// Stands in for Tonemill where something starts it with a list: keeps the list beside itself as
// taken-<process>.txt, and so takes it away.
#include "foundation/XFileSystem.h"
#include "foundation/XKeyValueList.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    XKeyValueList options;
    options.ParseCommandLine(GetCommandLineW());
    XString list;
    options.GetValue(L"list_to_conv", list);
    const XString kept = ProgramFolder() + L"taken-" + DecimalText(GetCurrentProcessId()) + L".txt";
    return MoveFileExW(list, kept, MOVEFILE_COPY_ALLOWED) ? 0 : 1;
}
