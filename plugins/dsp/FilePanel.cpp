// An edit control for the path, and the system's dialog to find one.
#include "plugins/dsp/FilePanel.h"

#include "plugins/common/SaveDialog.h"
#include "plugins/dsp/PanelIds.h"

namespace {
constexpr wchar_t option[] = L"file";
}

FilePanel::FilePanel(const FilePanelTexts& texts) noexcept : PanelWindow(ID_PANEL), texts(texts) {}

void FilePanel::Fill(const SettingsText& settings) {
    const XString path = settings.Value(option);
    SetText(ID_FILE, path.IsEmpty() ? texts.usual : path.Text());
    filled = Text(ID_FILE);
}

// A path that nobody touched stays as it came, even with characters that the control can't show.
void FilePanel::Collect(SettingsText& settings) {
    if (Text(ID_FILE) == filled)
        return;
    const XString path = Path();
    if (path.IsEmpty())
        settings.Remove(option);
    else
        settings.Put(option, path, texts.usual);
}

XString FilePanel::Path() const {
    XString path = Text(ID_FILE);
    path.Replace(L"\"", L"");
    path.TrimLeft();
    path.TrimRight();
    return path;
}

void FilePanel::OnChanged(int id) {
    if (id != ID_BROWSE)
        return;
    XString path = Path();
    if (AskSavePath(window, texts.title, texts.filter, texts.extension, path))
        SetText(ID_FILE, path);
}
