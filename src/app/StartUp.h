// What happens before the first form: carrying out the command line. Windows only.
#pragma once

#include "app/CommandLine.h"
#include "host/clFileList.h"

// False: the program is to end. Failures of files and settings are silent.
[[nodiscard]] bool CarryOut(const clCommandLine& line, clFileList& files);

// Reads, sorts and takes the list, then deletes the file. One that can't be read leaves `files` as is.
void TakeListFile(const XString& path, clFileList& files);
// Replaces the extra elements by the file's, if that can be read whole.
void LoadExtraElements(const XString& path);
void SignalEvent(const XString& name); // makes the event if it is not there
