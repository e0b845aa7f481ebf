// The texts between the engine and its workers.
#include "engine/WorkerText.h"

#include "contract/Worker.h"
#include "foundation/XBuffer.h"

#include <cstring>

namespace {

constexpr std::uint32_t stepsPerText = 16;
constexpr std::uint32_t blankHoldMs = 2000;

void AddSwitch(XString& text, const wchar_t* name, const XString& value) {
    text.Extend(L" -");
    text.Extend(name);
    text.Extend(L"=\"");
    text.Extend(value);
    text.Extend(L"\"");
}

const wchar_t* PriorityName(std::uint32_t priority) {
    switch (priority) {
    case priorityAboveNormal:
        return L"high";
    case priorityBelowNormal:
        return L"low";
    case priorityIdle:
        return L"idle";
    default:
        return nullptr;
    }
}

void RaisePercent(clJobSlot& slot, const XString& value) {
    constexpr std::int64_t highest = 0x7fffffff;
    const std::int64_t percent = value.ToInt();
    if (percent > slot.percent)
        slot.percent = static_cast<std::int32_t>(percent < highest ? percent : highest);
}

const XString& WantedText(const clJobSlot& slot) {
    if (slot.action.IsEmpty())
        return slot.action;
    const std::uint32_t texts =
        1u + (slot.actionInput.IsEmpty() ? 0u : 1u) + (slot.actionOutput.IsEmpty() ? 0u : 1u);
    switch (slot.tickCount / stepsPerText % texts) {
    case 0:
        return slot.action;
    case 1:
        return slot.actionInput.IsEmpty() ? slot.actionOutput : slot.actionInput;
    default:
        return slot.actionOutput;
    }
}

} // namespace

XString CommandFileText(const clJobSlot& slot, const clWorkerJob& job) {
    XString text;
    AddSwitch(text, ZtWorker::switchInFile, slot.source);
    AddSwitch(text, ZtWorker::switchOutFile, slot.output);
    AddSwitch(text, ZtWorker::switchConvertTo, slot.codecName);
    AddSwitch(text, ZtWorker::switchQuitEvent, job.quitEvent);
    AddSwitch(text, ZtWorker::switchWatchdogEvent, job.watchdogEvent);
    AddSwitch(text, ZtWorker::switchBatchId, UnsignedText(job.batchId));
    if (slot.processorNumber != 0)
        AddSwitch(text, ZtWorker::switchProcessor, UnsignedText(slot.processorNumber));
    if (!job.tempFolder.IsEmpty())
        AddSwitch(text, ZtWorker::switchTempFolder, job.tempFolder);
    if (const wchar_t* priority = PriorityName(slot.priority))
        AddSwitch(text, ZtWorker::switchPriority, priority);
    if (!slot.chainText.IsEmpty()) {
        text.Extend(L" ");
        text.Extend(slot.chainText);
    }
    text.Extend(L" "); // stands there for empty settings too
    text.Extend(slot.encoderSettings);
    return text;
}

XString WorkerCommandLine(const XString& executable, const XString& commandFile) {
    XString line(L"\"");
    line += executable;
    line += L"\" -";
    line += ZtWorker::commandFileSwitch;
    line += L"=\"";
    line += commandFile;
    line += L"\"";
    return line;
}

bool SplitAtFirstColon(const XString& line, XString& left, XString& right) {
    const int colon = line.FindChar(L':');
    if (colon == 0) {
        left.Clear();
        right.Clear();
        return false;
    }
    const int rest = line.CharAt(colon + 1) == L' ' ? colon + 2 : colon + 1;
    XString tail = line.Mid(rest);
    left = line.Left(colon - 1);
    right = tail;
    return true;
}

bool ParseWorkerLine(clJobSlot& slot, const XString& line) {
    if (line.Find(ZtWorker::messageMark) == 0)
        return false;
    XString left, remainder, key, value;
    // With the mark in mid-line the first colon is another one, and the addressee does not fit.
    if (!SplitAtFirstColon(line, left, remainder) || !SplitAtFirstColon(remainder, left, value) ||
        !left.Equals(ZtWorker::addressee))
        return true;
    remainder = value;
    if (!SplitAtFirstColon(remainder, key, value))
        return true;
    if (key.Equals(ZtWorker::keyPercent))
        RaisePercent(slot, value);
    else if (key.Equals(ZtWorker::keyFileName))
        slot.reportedNames.AddString(value);
    else if (key.Equals(ZtWorker::keyAction))
        slot.action = value;
    else if (key.Equals(ZtWorker::keyActionInput))
        slot.actionInput = value;
    else if (key.Equals(ZtWorker::keyActionOutput))
        slot.actionOutput = value;
    return true;
}

void SplitWorkerBytes(const void* bytes, std::uint64_t byteCount, XStringArray& out) {
    out.Clear();
    XBuffer text;
    if (byteCount == 0 || !text.SetSize(byteCount + 3, false, true)) // 3: an odd byte and a terminator
        return;
    std::memcpy(text.data, bytes, byteCount);
    XStringArray pieces;
    Split(pieces, static_cast<const wchar_t*>(text.data), L"\r\n");
    for (const XString& piece : pieces)
        if (!piece.IsEmpty())
            out.AddString(piece);
}

void AddLine(XString& text, const XString& line) {
    if (!text.IsEmpty())
        text.Extend(L"\r\n");
    text.Extend(line);
}

std::int32_t PercentToShow(const clJobSlot& slot) {
    if (slot.running)
        return slot.percent;
    return slot.hasFinished ? 100 : 0;
}

void PrepareSlotForFile(clJobSlot& slot, const XString& source, const XString& output,
                        std::uint64_t lengthMs) {
    slot.shownPercent = -1;
    slot.length = lengthMs;
    slot.source = source;
    slot.output = output;
    slot.reportedNames.Clear();
    slot.percent = 0;
    slot.tickCount = 0;
    slot.suspended = false;
    slot.actionInput.Clear();
    slot.actionOutput.Clear();
}

void FreeSlot(clJobSlot& slot) {
    slot.running = false;
    slot.action.Clear();
    slot.hasFinished = true;
    slot.finishedUnits = static_cast<std::int64_t>(slot.length);
}

bool RotateRowText(clJobSlot& slot, std::uint32_t now) {
    ++slot.tickCount;
    const XString& wanted = WantedText(slot);
    if (wanted == slot.shownText)
        return false;
    if (wanted.IsEmpty()) {
        if (slot.blankSince == 0)
            slot.blankSince = now;
        if (now - slot.blankSince < blankHoldMs)
            return false;
    } else {
        slot.blankSince = 0;
    }
    slot.shownText = wanted;
    return true;
}

void ClearSlotTexts(clJobSlot& slot) {
    slot.shownText.Clear();
    slot.action.Clear();
    slot.actionInput.Clear();
    slot.actionOutput.Clear();
}
