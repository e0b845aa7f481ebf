// Effect chains as files.
#include "host/EffectChain.h"

#include "foundation/XFile.h"

bool WriteEffectFile(const XString& path, const XString& chainText, bool showErrors) {
    XFile file(path);
    return file.Open(GENERIC_WRITE, CREATE_ALWAYS, showErrors) &&
           file.Write(chainText.Text(), static_cast<DWORD>(chainText.Count()) * 2);
}

XString ReadEffectFile(const XString& path) {
    XFile file(path);
    XString line;
    if (!file.Open(GENERIC_READ, OPEN_EXISTING) || !file.ReadLine(line, true))
        line.Clear();
    return line;
}
