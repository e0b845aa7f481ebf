// Numbers and texts that the progress form shows.
#include "engine/ProgressText.h"

#include "foundation/XNumberText.h"

namespace {

struct clTimeUnit {
    std::uint64_t seconds;
    std::uint64_t wrap; // how many make one of the next larger unit
    const wchar_t* one;
    const wchar_t* many;
};
constexpr clTimeUnit timeUnits[] = {
    {86400, 0, L" Day", L" Days"},
    {3600, 24, L" Hour", L" Hours"},
    {60, 60, L" Minute", L" Minutes"},
    {1, 60, L" Second", L" Seconds"},
};
constexpr int timeUnitCount = 4;

std::uint64_t PartOf(std::uint64_t seconds, const clTimeUnit& unit) {
    const std::uint64_t whole = seconds / unit.seconds;
    return unit.wrap == 0 ? whole : whole % unit.wrap;
}

XString PartText(std::uint64_t value, const clTimeUnit& unit) {
    return UnsignedText(value) + (value == 1 ? unit.one : unit.many);
}

const wchar_t* FilesTo(std::int32_t count) {
    return count == 1 ? L" File to " : L" Files to ";
}

} // namespace

XString FormatSpeed(std::uint64_t units, std::uint32_t elapsedMs, std::int32_t multiplier) {
    const double elapsed = elapsedMs == 0 ? 1.0 : elapsedMs;
    const double speed = static_cast<double>(units) / elapsed * multiplier;
    // Beyond what a number of 64 bits holds only a wrong length can lead; the text stays a number.
    constexpr double highest = 9.0e18;
    const XString number =
        speed > 4.0 ? DecimalText(static_cast<std::int64_t>((speed < highest ? speed : highest) + 0.5))
                    : FormatReal(speed, 1, true);
    return number + L"x Encoding Speed";
}

XString FormatElapsed(std::uint64_t seconds, bool full) {
    constexpr std::uint64_t aloneFrom = 4;
    for (int i = 0; i < timeUnitCount; ++i) {
        const std::uint64_t value = PartOf(seconds, timeUnits[i]);
        if (value == 0)
            continue;
        XString text = PartText(value, timeUnits[i]);
        if (i + 1 < timeUnitCount && (full || value < aloneFrom))
            text += L" " + PartText(PartOf(seconds, timeUnits[i + 1]), timeUnits[i + 1]);
        return text;
    }
    return XString();
}

std::int64_t OverallPercent(std::uint64_t doneUnits, std::uint64_t totalUnits) {
    return static_cast<std::int64_t>(doneUnits * 100 / (totalUnits == 0 ? 1 : totalUnits));
}

bool RemainingMs(std::uint64_t doneUnits, std::uint64_t totalUnits, std::uint32_t elapsedMs,
                 std::int64_t& remainingMs) {
    remainingMs = 0;
    const double percent =
        static_cast<double>(doneUnits) * 100.0 / static_cast<double>(totalUnits == 0 ? 1 : totalUnits);
    if (percent == 0.0)
        return false;
    const double whole = elapsedMs * 100.0 / percent;
    constexpr double highest = 9.0e18; // a batch of centuries whose first millisecond is done
    remainingMs = static_cast<std::int64_t>(whole < highest ? whole : highest) - elapsedMs;
    if (remainingMs < 0)
        remainingMs = 0;
    return true;
}

XString ExaminingText(std::int64_t position, std::int64_t fileCount) {
    constexpr std::int64_t places = 20;
    std::int64_t place = fileCount > 0 ? position * 100 / fileCount / 5 : 0;
    if (place >= places)
        place = places - 1;
    XString text(L"Examining Source & Overwrite Check      [");
    for (std::int64_t i = 0; i < places; ++i)
        text.InsertChar(i == place ? L'+' : L' ');
    text.InsertChar(L']');
    return text;
}

XString StartHeading(std::int32_t filesToConvert, const XString& codecName) {
    return L"Converting " + DecimalText(filesToConvert) + FilesTo(filesToConvert) + codecName;
}

XString ProgressHeading(std::int32_t current, std::int32_t filesToConvert, const XString& codecName) {
    return L"Converting File " + FormatInt(current) + L" of " + FormatInt(filesToConvert) + L" to " +
           codecName;
}

XString FinishedHeading(std::int32_t filesToConvert, const XString& codecName) {
    return L"Converted " + FormatInt(filesToConvert) + FilesTo(filesToConvert) + codecName;
}

XString ProgressTitle(std::int64_t percent) {
    return L"[" + DecimalText(percent) + L"%] " + programCaption;
}
