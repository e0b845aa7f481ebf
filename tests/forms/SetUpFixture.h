// The set-up form in its modal loop, on plug-ins of the tests' own: encoders "Alpha" and "Beta" with
// an edit field (panelEdit) as panel, "NoSame", "NoFolder" and "Neither" that do not offer an output,
// a decoder of .aaa.
#pragma once

#include "FormDriver.h"
#include "forms/setup/frmConvertToOpt.h"
#include "host/Settings.h"
#include "resources/ids.h"

#include <gtest/gtest.h>

inline constexpr int panelEdit = 5000;

class SetUpForm : public testing::Test {
protected:
    using Step = FormDriver::Step;
    SetUpForm();
    ~SetUpForm() override;

    // Shows the form, runs the steps and returns whether the user converts.
    bool Run(std::vector<Step> steps);
    // The same, and leaves by this button.
    bool Run(std::vector<Step> steps, int button);

    static HWND Form() { return FindForm(ID_ENCODER_LIST); }
    static HWND At(int id) { return GetDlgItem(Form(), id); }
    [[nodiscard]] static XString Chosen(int list); // text of the selected row
    [[nodiscard]] static bool IsChecked(int id) { return IsDlgButtonChecked(Form(), id) == BST_CHECKED; }
    static void Store(const wchar_t* item, const wchar_t* settings, std::uint32_t mode, const wchar_t* folder,
                      const wchar_t* naming, const wchar_t* effects);

    // Steps
    [[nodiscard]] static Step Choose(const wchar_t* row); // of the encoder list, as the user does
    [[nodiscard]] static Step Press(int button);
    [[nodiscard]] static Step Type(int edit, const wchar_t* text);
    [[nodiscard]] static Step Until(std::function<bool()> condition) { return condition; }

    TestSettings settings;
    clFileList files;
    clSetUpSeams seams;
    XStringArray opened; // by the shell
    XString folderChosen, folderShown;
    XString root; // of the plug-ins, with its backslash

private:
    XKernelHandle turn; // there is one event of the hand-off
};
