// The rows of the list: made when it opens, completed as the files are read, taken over at the end.
#include "forms/review/frmListNRename.h"

#include "contract/Keys.h"
#include "forms/review/ListTexts.h"
#include "foundation/XDurationText.h"
#include "foundation/XNumberText.h"
#include "host/DecoderCatalogue.h"
#include "host/Settings.h"
#include "resources/ids.h"

namespace {

constexpr DWORD fillBudgetMs = 100; // of a tick, so that the list scrolls while it is filled

enum clListColumn : int {
    columnDestination,
    columnSource,
    columnType,
    columnLength,
    columnSize,
};

bool isInTick = false;

} // namespace

void frmListNRename::AddColumns() {
    struct Column {
        const wchar_t* title;
        int format;
    };
    constexpr Column columns[listColumns] = {
        {L"Destination File", LVCFMT_LEFT}, {L"Source File", LVCFMT_LEFT},     {L"Source Type", LVCFMT_LEFT},
        {L"Source Length", LVCFMT_RIGHT},   {L"Estimated Size", LVCFMT_RIGHT},
    };
    RECT client{};
    GetClientRect(List.List, &client);
    int widths[listColumns];
    GetColumnWidths(client.right, ScaleToDpi, widths);
    for (int i = 0; i < listColumns; ++i)
        List.AddColumn(columns[i].title, widths[i], columns[i].format);
}

void frmListNRename::AddRows() {
    const int count = static_cast<int>(Files.Count());
    estimates.assign(static_cast<std::size_t>(count), 0);
    checked.assign(static_cast<std::size_t>(count), false);
    NextRow = 0;
    ListView_SetItemCount(List.List, count);
    SourceIconCache fresh;
    const int outputIcon = GetSourceIconIndex(fresh, Extension);
    for (int row = 0; row < count; ++row)
        AddRow(row, outputIcon);
}

void frmListNRename::AddRow(int row, int outputIcon) {
    clFileItem& file = Files[row];
    const XString destination = file.outputPath.IsEmpty() ? DestinationText(file) : file.outputPath;
    List.InsertRow(row, destination, outputIcon);
    const XString description = IsNoFile(file.sourcePath) ? SourceDescription(file.sourcePath) : XString();
    XString source = SourceText(file.sourcePath, description);
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_IMAGE;
    item.iItem = row;
    item.iSubItem = columnSource;
    item.pszText = source.Buffer();
    item.iImage = kinds.Of(file.sourcePath).iconIndex;
    ListView_SetItem(List.List, &item);
    if (file.skipFlag == 0)
        List.SetChecked(row, true);
    checked[static_cast<std::size_t>(row)] = file.skipFlag == 0;
    if (row == 0 && !NoRename)
        FindFreeSpace(destination);
}

void frmListNRename::FindFreeSpace(const XString& destination) {
    const XString root = DriveRootOf(destination);
    ULARGE_INTEGER toUser{}, total{}, free{};
    if (!root.IsEmpty() && GetDiskFreeSpaceExW(root, &toUser, &total, &free))
        FreeSpaceText = FreeSpaceSentence(static_cast<std::int64_t>(free.QuadPart), root);
}

XString frmListNRename::DestinationText(clFileItem& file) const {
    return ComputedDestination(file, {CodecName, OutputFolder, NamingTemplate, Extension, NeedsTags});
}

XString frmListNRename::SourceDescription(const XString& path) {
    const XString extension = SourceExtension(path).Upper();
    if (extension == LastExtension)
        return LastDescription;
    LastExtension = extension;
    LastDescription.Clear();
    clZtDecoder decoder;
    PluginCreateBlock create{};
    PluginParams params{};
    if (OpenDecoderFor(path, decoder, &create) && decoder.AskGet(ZtKey::decoderDescription, params) != 0)
        LastDescription = params.text1;
    return LastDescription;
}

void frmListNRename::OnTimer(std::uint64_t id, std::uint64_t) {
    if (isInTick || id != fillTimer)
        return;
    isInTick = true;
    FillLateColumns();
    isInTick = false;
}

bool frmListNRename::IsEveryRowFilled() const {
    return NextRow == static_cast<int>(Files.Count());
}

void frmListNRename::FillLateColumns() {
    const auto canFill = [this] {
        if (IsEveryRowFilled())
            return false;
        const std::uint32_t stage = Files[NextRow].Stage();
        return stage != stageNothing && !(stage == stageFormat && NeedsTags);
    };
    if (!canFill())
        return;
    const int lengthMode =
        LengthModeOf(RegReadDword(Setting::unitsTime, nullptr, SettingsPath(Setting::keyUnits)));
    {
        const XListUpdate update(List);
        for (const DWORD start = GetTickCount(); canFill() && GetTickCount() - start < fillBudgetMs;
             ++NextRow)
            FillRow(NextRow, lengthMode);
    }
    if (IsEveryRowFilled())
        UpdateSummary();
}

void frmListNRename::FillRow(int row, int lengthMode) {
    clFileItem& file = Files[row];
    if (!IsNoFile(file.sourcePath))
        List.SetCellText(kinds.Of(file.sourcePath).typeName, row, columnType);
    if (file.format.lengthMs != 0) {
        const auto length = static_cast<std::int64_t>(file.format.lengthMs);
        List.SetCellText(FormatDuration(length, lengthMode), row, columnLength);
        PluginParams params{};
        params.number = length;
        params.text1 = EncoderSettings;
        params.data = &file.format;
        if (Encoder.AskGet(ZtKey::estimatedFileSize, params) != 0) {
            estimates[static_cast<std::size_t>(row)] = params.result;
            List.SetCellText(FormatSize(params.result, false), row, columnSize);
        }
    }
    if (file.Stage() == stageTags && List.GetCellText(row, columnDestination).IsEmpty())
        List.SetCellText(DestinationText(file), row, columnDestination);
}

void frmListNRename::UpdateSummary() {
    clListSummary summary;
    for (std::size_t row = 0; row < checked.size(); ++row) {
        if (!checked[row])
            continue;
        ++summary.files;
        summary.estimatedBytes += estimates[row];
    }
    summary.isComplete = IsEveryRowFilled();
    SetTextIfChanged(Control(ID_LIST_SUMMARY), shownSummary, SummaryText(summary, CodecName, FreeSpaceText));
}

void frmListNRename::Commit() {
    const int rows = List.RowCount();
    for (int row = 0; row < rows; ++row) {
        clFileItem& file = Files[row];
        CommitRow(file, List.GetCellText(row, columnDestination), DestinationText(file), List.IsChecked(row));
    }
}
