// The text of a command file, taken apart: the named switches, the effect chain and the encoder's
// settings. Portable.
#pragma once

#include "foundation/XString.h"

enum clWorkerPriority { workerNormal, workerHigh, workerLow, workerIdle };

struct clWorkerCommand {
    XString inFile;
    XString outFile;
    XString encoder;
    XString quitEvent; // names of the two events
    XString watchdogEvent;
    std::uint32_t batchId = 0;
    int processor = 0;  // 1 and up; 0: any
    XString tempFolder; // empty: the system's
    clWorkerPriority priority = workerNormal;
    XString chain;    // text of the chain's options as it stands
    XString settings; // what follows the last option, to the letter
};

// Reads the named switches in their fixed order; the chain's options follow, each number once. One
// blank ends them, and everything behind it is settings, even if it looks like another switch: a name
// out of order, or an optional one whose value it can't have, begins them. False, with what is wrong
// in `error`, if the text is not of that form or a switch that every command has is missing.
[[nodiscard]] bool ParseWorkerCommand(const XString& text, clWorkerCommand& command, XString& error);

// UTF-16LE bytes to text; a byte-order mark is dropped. False for an odd count or a zero in the text.
[[nodiscard]] bool CommandTextFromBytes(const void* bytes, std::uint64_t count, XString& text);
