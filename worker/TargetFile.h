// The output on its way: written under a short name of its own beside the target, which stays whole
// until the new file is complete and takes its name. Windows only.
#pragma once

#include "foundation/XArray.h"
#include "foundation/XHandles.h"
#include "worker/Lifeline.h"

class TargetFile {
public:
    TargetFile(const XString& path, Reporter& reporter) : path(path), reporter(reporter) {}
    ~TargetFile() { Discard(); }
    TargetFile(const TargetFile&) = delete;
    TargetFile& operator=(const TargetFile&) = delete;

    // Makes missing folders and chooses the temporary name, whose file is not there yet.
    [[nodiscard]] bool Prepare();
    // What the encoder is to write; prefixed if it is long.
    [[nodiscard]] const XString& Temporary() const noexcept { return temporary; }
    // Gives the complete file its name. Whoever has it open must have closed it; so must a reader of
    // the old file. A target in use is tried for some seconds.
    [[nodiscard]] clStep Commit(Lifeline& lifeline);
    // Takes back what there is: the file and the folders that were made for it. Does nothing after a
    // Commit. Allocates nothing, for a process in distress may call it from another thread.
    void Discard() noexcept;
    void Error(const XString& what); // names the target, and a full disk if that is the reason

private:
    [[nodiscard]] bool MakeFolders();
    [[nodiscard]] bool TryRename(DWORD& error);

    XString path;
    XString temporary;        // empty: nothing to discard
    XString folder;           // of both; with its backslash
    XStringArray madeFolders; // from the root down
    XFileHandle folderHold;   // keeps others that clean up from removing a still empty folder
    Reporter& reporter;
};
