#include "forms/review/ListTexts.h"

#include "foundation/XDurationText.h"
#include "foundation/XNumberText.h"
#include "foundation/XPath.h"
#include "host/DecoderFilter.h"
#include "host/clFileItem.h"
#include "naming/NamedFolders.h"
#include "naming/OutputPath.h"

namespace {

constexpr int otherColumnsWidth = 275; // the last three columns, the scroll bar and the borders
constexpr int leastBase = 200;
constexpr int lateColumnWidth = 85;

XString Bracketed(const XString& text) {
    return L"< " + text + L" >";
}

} // namespace

bool IsNoFile(const XString& extensionOrPath) {
    return extensionOrPath.Find(ignoredExtensionMark) > 0;
}

XString ComputedDestination(clFileItem& file, const clListNaming& naming) {
    const bool isKnown = naming.namingTemplate.IsEmpty() || !naming.needsTags || file.Stage() == stageTags;
    if (IsNoFile(naming.extension))
        return Bracketed(naming.codecName);
    if (!isKnown)
        return {};
    const XString kept(file.outputPath);
    file.outputPath.Clear();
    ComputeOutputPath(file, naming.outputFolder, naming.namingTemplate, naming.extension);
    XString text = StripExtension(FolderDisplayName(file.outputPath, true));
    file.outputPath = kept;
    return text;
}

XString SourceText(const XString& path, const XString& description) {
    return IsNoFile(path) ? Bracketed(description) : FolderDisplayName(StripExtension(path), true);
}

XString DriveRootOf(const XString& destination) {
    const bool hasRoot = destination.CharAt(2) == L':' && destination.CharAt(3) == L'\\';
    return hasRoot ? destination.Left(3) : XString();
}

XString FreeSpaceSentence(std::int64_t bytes, const XString& root) {
    return L"\t\tFree Space: " + FormatSize(bytes, false) + L" on " + FolderDisplayName(root, false);
}

int LengthModeOf(std::uint32_t setting) {
    if (setting == 0)
        return durationShort;
    // Words without fractions would show nothing of files below a second.
    return setting == durationWholeSeconds ? durationWords : static_cast<int>(setting);
}

XString SummaryText(const clListSummary& summary, const XString& codecName,
                    const XString& freeSpaceSentence) {
    XString text = L"Converting " + DecimalText(summary.files);
    text += summary.files == 1 ? L" File" : L" Files";
    text += L" to " + codecName;
    if (summary.isComplete && summary.estimatedBytes != 0)
        text += L"\t\tEstimated Total: " + FormatSize(summary.estimatedBytes, false) + freeSpaceSentence;
    return text;
}

void GetColumnWidths(int listWidth, int (*scale)(int), int (&widths)[listColumns]) {
    const int wanted = (listWidth - scale(otherColumnsWidth)) / 2;
    const int base = wanted > scale(leastBase) ? wanted : scale(leastBase);
    widths[0] = base * 100 / 80;
    widths[1] = 2 * base - widths[0];
    for (int i = 2; i < listColumns; ++i)
        widths[i] = scale(lateColumnWidth);
}

void CommitRow(clFileItem& file, const XString& shown, const XString& computed, bool isChecked) {
    file.skipFlag = isChecked ? 0 : 1;
    if (shown.IsEmpty())
        return;
    if (!(shown == computed))
        file.outputPath = shown;
    else if (!(file.outputPath == shown))
        file.outputPath.Clear(); // typed back: an earlier rename must not come through behind it
}
