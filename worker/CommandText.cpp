#include "worker/CommandText.h"

#include "contract/Worker.h"
#include "foundation/XArray.h"

#include <cstring>

namespace {

struct SwitchRow {
    const wchar_t* name;
    XString clWorkerCommand::*text; // null: a number or word that is checked
    bool required;
};
constexpr SwitchRow switchRows[] = {
    {ZtWorker::switchInFile, &clWorkerCommand::inFile, true},
    {ZtWorker::switchOutFile, &clWorkerCommand::outFile, true},
    {ZtWorker::switchConvertTo, &clWorkerCommand::encoder, true},
    {ZtWorker::switchQuitEvent, &clWorkerCommand::quitEvent, true},
    {ZtWorker::switchWatchdogEvent, &clWorkerCommand::watchdogEvent, true},
    {ZtWorker::switchBatchId, nullptr, true},
    {ZtWorker::switchProcessor, nullptr, false},
    {ZtWorker::switchTempFolder, &clWorkerCommand::tempFolder, false},
    {ZtWorker::switchPriority, nullptr, false},
};
constexpr int switchCount = sizeof(switchRows) / sizeof(switchRows[0]);

struct PriorityRow {
    const wchar_t* name;
    clWorkerPriority priority;
};
constexpr PriorityRow priorityRows[] = {{L"high", workerHigh}, {L"low", workerLow}, {L"idle", workerIdle}};

// One option at a place in the text; positions are 1-based.
struct Option {
    XString name;
    XString value;
    int next = 0; // behind the option
};

bool ReadNumber(const XString& text, std::uint64_t highest, std::uint64_t& number) {
    number = 0;
    for (int pos = 1; pos <= text.Count(); ++pos) {
        const wchar_t ch = text.CharAt(pos);
        if (ch < L'0' || ch > L'9')
            return false;
        number = number * 10 + static_cast<std::uint64_t>(ch - L'0');
        if (number > highest)
            return false;
    }
    return !text.IsEmpty();
}

// The strict form of a named switch: -name="value".
bool ReadSwitch(const XString& text, int pos, Option& option) {
    const int equals = text.FindChar(L'=', pos);
    if (text.CharAt(pos) != L'-' || equals == 0 || text.CharAt(equals + 1) != L'"')
        return false;
    const int quote = text.FindChar(L'"', equals + 2);
    if (quote == 0)
        return false;
    option.name = text.Mid(pos + 1, equals - 1);
    option.value = quote == equals + 2 ? XString() : text.Mid(equals + 2, quote - 1);
    option.next = quote + 1;
    return true;
}

// A chain may have been written by hand, so its options may have any form of the option language. 0 if
// none stands here; else the position behind it, with the option's number in `number`.
int SkipEffect(const XString& text, int pos, std::uint64_t& number) {
    if (text.CharAt(pos) != L'-')
        return 0;
    const int length = text.Count();
    int at = pos + (text.CharAt(pos + 1) == L'-' ? 2 : 1);
    const int digits = at + TextLength(ZtWorker::switchEffect);
    if (digits > length || !text.Mid(at, digits - 1).EqualsNoCase(ZtWorker::switchEffect))
        return 0;
    at = digits;
    while (at <= length && text.CharAt(at) != L'=' && text.CharAt(at) != L' ' && text.CharAt(at) != L'"')
        ++at;
    if (at == digits || !ReadNumber(text.Mid(digits, at - 1), 1000000, number))
        return 0;
    while (at <= length && (text.CharAt(at) == L' ' || text.CharAt(at) == L'='))
        ++at;
    if (text.CharAt(at) == L'"') {
        const int quote = text.FindChar(L'"', at + 1);
        return quote == 0 ? 0 : quote + 1;
    }
    const int blank = text.FindChar(L' ', at);
    return blank == 0 ? length + 1 : blank;
}

int FindRow(const XString& name) {
    for (int row = 0; row < switchCount; ++row)
        if (name.Equals(switchRows[row].name))
            return row;
    return -1;
}

bool Store(clWorkerCommand& command, int row, const XString& value) {
    const SwitchRow& entry = switchRows[row];
    if (entry.text) {
        command.*entry.text = value;
        return !entry.required || !value.IsEmpty();
    }
    std::uint64_t number = 0;
    if (entry.name == ZtWorker::switchBatchId) {
        const bool good = ReadNumber(value, 0xffffffff, number);
        command.batchId = static_cast<std::uint32_t>(number);
        return good;
    }
    if (entry.name == ZtWorker::switchProcessor) {
        if (!ReadNumber(value, 1000000, number))
            return false;
        command.processor = static_cast<int>(number);
        return true;
    }
    for (const PriorityRow& known : priorityRows) {
        if (value.Equals(known.name)) {
            command.priority = known.priority;
            return true;
        }
    }
    return false;
}

// Position of the option behind the blanks at `pos`.
int SkipBlanks(const XString& text, int pos) {
    while (text.CharAt(pos) == L' ')
        ++pos;
    return pos;
}

// Moves `pos` behind the chain and returns its text.
XString TakeChain(const XString& text, int& pos) {
    XStringArray seen;
    const int first = SkipBlanks(text, pos);
    for (int at = first;;) {
        std::uint64_t number = 0;
        const int next = SkipEffect(text, at, number);
        if (next == 0 || seen.Contains(UnsignedText(number), false))
            break;
        seen.AddString(UnsignedText(number));
        pos = next;
        at = SkipBlanks(text, next);
    }
    return seen.IsEmpty() ? XString() : text.Mid(first, pos - 1);
}

} // namespace

bool ParseWorkerCommand(const XString& text, clWorkerCommand& command, XString& error) {
    command = clWorkerCommand();
    bool seen[switchCount] = {};
    int pos = 1;
    int last = -1;
    for (;;) {
        Option option;
        if (!ReadSwitch(text, SkipBlanks(text, pos), option))
            break;
        const int row = FindRow(option.name);
        if (row <= last)
            break;
        const bool isGood = Store(command, row, option.value);
        if (!isGood && !switchRows[row].required)
            break;
        if (!isGood) {
            error = XString(L"the switch -") + option.name + L" has the value \"" + option.value + L"\"";
            return false;
        }
        seen[row] = true;
        last = row;
        pos = option.next;
    }
    for (int row = 0; row < switchCount; ++row) {
        if (switchRows[row].required && !seen[row]) {
            error = XString(L"the switch -") + switchRows[row].name + L" is missing";
            return false;
        }
    }
    command.chain = TakeChain(text, pos);
    if (pos > text.Count())
        return true;
    if (text.CharAt(pos) != L' ') {
        error = L"there is no blank behind the last switch";
        return false;
    }
    command.settings = text.From(pos + 1);
    return true;
}

bool CommandTextFromBytes(const void* bytes, std::uint64_t count, XString& text) {
    constexpr std::uint64_t limit = 16 << 20;
    if (count % sizeof(wchar_t) != 0 || count > limit)
        return false;
    const auto* from = static_cast<const unsigned char*>(bytes);
    constexpr unsigned char mark[] = {0xff, 0xfe};
    if (count >= sizeof(mark) && std::memcmp(from, mark, sizeof(mark)) == 0) {
        from += sizeof(mark);
        count -= sizeof(mark);
    }
    const int units = static_cast<int>(count / sizeof(wchar_t));
    text.SetLength(units);
    if (units != 0)
        std::memcpy(text.Buffer(), from, count);
    text.FitLength();
    return text.Count() == units;
}
