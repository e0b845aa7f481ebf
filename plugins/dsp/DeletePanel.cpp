#include "plugins/dsp/DeletePanel.h"

#include "plugins/dsp/PanelIds.h"

namespace {
constexpr wchar_t option[] = L"otherlength";
}

DeletePanel::DeletePanel() noexcept : PanelWindow(ID_PANEL) {}

void DeletePanel::Fill(const SettingsText& settings) {
    SetChecked(ID_DELETE_OTHER_LENGTH, settings.Flag(option));
}

void DeletePanel::Collect(SettingsText& settings) {
    settings.PutFlag(option, IsChecked(ID_DELETE_OTHER_LENGTH));
}
