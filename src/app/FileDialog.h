// The open-file dialog, for a start that brings no files. Windows only.
#pragma once

#include "host/clFileList.h"

// Units of the buffer that the dialog fills at first: some 20000 names of a folder.
inline constexpr unsigned pickedCapacity = 1U << 20;

// Appends what the user picks, in the dialog's order and without a test for duplicates, and
// remembers the folder for the next time. Nothing if the user cancels. Should the picked names not
// fit into the buffer, the dialog is shown again with a larger one.
void ShowFileDialog(clFileList& files, unsigned capacity = pickedCapacity);
