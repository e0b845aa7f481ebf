// What the panels of effects that write a file share: its path and a button to find one.
#pragma once

#include "plugins/common/PanelWindow.h"

struct FilePanelTexts {
    const wchar_t* title;     // of the system's dialog
    const wchar_t* filter;    // pairs of terminated texts and a final 0
    const wchar_t* extension; // without its dot
    const wchar_t* usual;     // the file without the option; may be empty
};

// Edits the option "file"; the template has ID_FILE and ID_BROWSE.
class FilePanel : public PanelWindow {
public:
    explicit FilePanel(const FilePanelTexts& texts) noexcept;

protected:
    void Fill(const SettingsText& settings) override;
    void Collect(SettingsText& settings) override;
    void OnChanged(int id) override;
    [[nodiscard]] XString Path() const; // as it stands, without the quotes that the Explorer copies

private:
    const FilePanelTexts& texts;
    XString filled; // the path as the control showed it first
};
