// The configuration program's form. OK writes everything at once, Cancel nothing.
#pragma once

#include "config/ConfigStore.h"
#include "toolkit/XWindow.h"

#include <functional>

inline constexpr wchar_t configCaption[] = L"Zephtone Tonemill: Settings";

// What the form asks of others; those that are empty are the real ones.
struct clConfigSeams {
    std::function<XString(const wchar_t* title, HWND owner, const XString& selected)> chooseFolder;
    std::function<bool()> areEntriesRegistered; // in Explorer's menus
    std::function<bool(bool wanted)> registerEntries;
};

class frmConfig final : public XWindow {
public:
    // Shows the form and returns when it has closed.
    explicit frmConfig(clConfigSeams seams = {});
    ~frmConfig() override;

    void OnInit() override;
    void OnClose() override;
    void OnCancel() override;
    void OnOK() override;
    LRESULT PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                       std::uint32_t& handled) override;

private:
    void FillLists();
    void ShowSettings();
    void UpdateOutputControls();
    void Browse(int edit, const wchar_t* title);
    [[nodiscard]] XString FolderIn(int edit) const; // as a path; empty for blanks alone
    [[nodiscard]] bool IsChecked(int id) const;
    [[nodiscard]] bool RefuseOutputFolder();
    [[nodiscard]] bool RefuseTempFolder();
    void Refuse(int edit, const XString& why);
    void Write();

    clConfigSeams Seams;
    bool WereRegistered = false;
};
