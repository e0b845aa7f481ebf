// The texts between the engine and its workers: what a worker is told, what it says, and what of
// that a row shows. Decisions only; portable.
#pragma once

#include "engine/Records.h"

// What the command file of one launch says beyond the slot's own fields.
struct clWorkerJob {
    XString quitEvent; // names of the two events
    XString watchdogEvent;
    std::uint32_t batchId = 0;
    XString tempFolder; // empty: no switch
};

[[nodiscard]] XString CommandFileText(const clJobSlot& slot, const clWorkerJob& job);
[[nodiscard]] XString WorkerCommandLine(const XString& executable, const XString& commandFile);

// Left and right of the first colon, one blank behind it dropped. False, and both empty, without one.
bool SplitAtFirstColon(const XString& line, XString& left, XString& right);
// True if the line was a message, whoever it was meant for; false: it is information.
bool ParseWorkerLine(clJobSlot& slot, const XString& line);
// The pieces between CR LFs of what a pipe held; empty ones are left out. An odd last byte is
// completed with zero. Clears `out` first.
void SplitWorkerBytes(const void* bytes, std::uint64_t byteCount, XStringArray& out);
// Appends behind CR LF.
void AddLine(XString& text, const XString& line);

[[nodiscard]] std::int32_t PercentToShow(const clJobSlot& slot);
// Resets what belongs to one file, before a launch.
void PrepareSlotForFile(clJobSlot& slot, const XString& source, const XString& output,
                        std::uint64_t lengthMs);
// Frees the slot and leaves the length for the harvest; the file counts as done even if it failed.
void FreeSlot(clJobSlot& slot);

// One step of the rotation between action, input and output: 16 steps each. An empty text replaces a
// shown one only after 2000 ms. True if shownText changed.
bool RotateRowText(clJobSlot& slot, std::uint32_t now);
// At normal batch end.
void ClearSlotTexts(clJobSlot& slot);
