// Starts what its command line says behind the first '|', writes the process id to its standard output
// as four bytes, and waits until it is ended.
#include <windows.h>

#include <cwchar>

int wmain() {
    wchar_t* rest = std::wcschr(GetCommandLineW(), L'|');
    if (!rest)
        return 1;
    STARTUPINFOW start{};
    start.cb = sizeof(start);
    start.dwFlags = STARTF_USESTDHANDLES; // with none: a broken pipe must not be what ends the child
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, rest + 1, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process))
        return 2;
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), &process.dwProcessId, sizeof(DWORD), &written, nullptr);
    Sleep(INFINITE);
    return 0;
}
