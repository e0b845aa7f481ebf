// What happens before the first form: the command line and the files. Windows only.
#pragma once

#include "app/CommandLine.h"
#include "host/clFileList.h"

// The way to the first form: the command line, then the dialog if no file has come. False: the
// program is to end without a form.
[[nodiscard]] bool GatherFiles(const clCommandLine& line, clFileList& files);

// False: the program is to end, as when a set-up form on the screen has taken the list. Failures of files and
// settings are silent.
[[nodiscard]] bool CarryOut(const clCommandLine& line, clFileList& files);

// Reads, sorts and takes the list, then deletes the file. One that can't be read leaves `files` as is.
void TakeListFile(const XString& path, clFileList& files);
// Replaces the extra elements by the file's, if that can be read whole.
void LoadExtraElements(const XString& path);
void SignalEvent(const XString& name); // makes the event if it is not there
