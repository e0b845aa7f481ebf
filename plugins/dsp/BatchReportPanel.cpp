#include "plugins/dsp/BatchReportPanel.h"

#include "plugins/dsp/PanelIds.h"

namespace {
constexpr FilePanelTexts reportTexts = {L"Batch Report", L"Text files\0*.txt\0All files\0*.*\0", L"txt", L""};
}

BatchReportPanel::BatchReportPanel() noexcept : FilePanel(reportTexts) {}

void BatchReportPanel::OnChanged(int id) {
    FilePanel::OnChanged(id);
    SetText(ID_SUMMARY, Path().IsEmpty()
                            ? L"Without a file no report is written."
                            : L"When a batch has ended, this file is written anew: a line for each converted "
                              L"file with \"ok\" or \"failed\", the source and the output.");
}
