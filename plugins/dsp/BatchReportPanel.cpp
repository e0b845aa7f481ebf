// An edit control for the path, and the system's dialog to find one.
#include "plugins/dsp/BatchReportPanel.h"

#include "plugins/common/SaveDialog.h"

void BatchReportPanel::Fill(const SettingsText& settings) {
    SetText(ID_REPORT_FILE, settings.Value(L"file"));
    filled = Text(ID_REPORT_FILE);
}

// A path that nobody touched stays as it came, even with characters that the control can't show.
void BatchReportPanel::Collect(SettingsText& settings) {
    XString path = Text(ID_REPORT_FILE);
    if (path == filled)
        return;
    path.TrimLeft();
    path.TrimRight();
    settings.Put(L"file", path, L"");
}

void BatchReportPanel::OnChanged(int id) {
    if (id == ID_REPORT_BROWSE) {
        XString path = Text(ID_REPORT_FILE);
        if (AskSavePath(window, L"Batch Report", L"Text files\0*.txt\0All files\0*.*\0", L"txt", path))
            SetText(ID_REPORT_FILE, path);
    }
    SetText(ID_SUMMARY, Text(ID_REPORT_FILE).IsEmpty()
                            ? L"Without a file no report is written."
                            : L"When a batch has ended, this file is written anew: a line for each converted "
                              L"file with \"ok\" or \"failed\", the source and the output.");
}
