// What a command line asks for. Portable: the doing is StartUp's.
#pragma once

#include "foundation/XKeyValueList.h"

enum class clCommand {
    goOn,          // nothing was given: the user chooses the files
    loadList,      // a list file was given
    startConfig,   // "<config>": the configuration program, then the end
    refuseInstall, // "<install>": a box of its own, then as unknown
    unknown,       // the box of the unknown command line, then the end
};

struct clCommandLine {
    // These have their effect also if the line fails.
    XString extrasFile; // image of extra elements; empty: none
    XString codec;      // item text to be stored as the current one; empty: none
    bool skipSetUp = false;

    clCommand command = clCommand::goOn;
    XString listFile;         // with loadList
    XString signalEvent;      // with loadList: name of an event to be set; empty: none
    bool isListAlone = false; // with loadList: no other option stands on the line
    XString text;             // the line behind the program's name, as the boxes show it
};

// `tail` is what follows the program's name, without blanks at its ends.
[[nodiscard]] clCommandLine ReadCommandLine(const XKeyValueList& options, const XString& tail);
