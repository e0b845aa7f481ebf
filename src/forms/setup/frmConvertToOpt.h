// The form on which the user says what the files become: encoder or profile with its settings, where
// the output goes, how it is named and which effects run. All of it goes into the registry, where the
// converting form finds it; the list of files is shared.
#pragma once

#include "forms/setup/EffectMenu.h"
#include "forms/setup/OutputChoice.h"
#include "host/CodecHandler.h"
#include "host/clFileList.h"
#include "toolkit/XBitmap.h"
#include "toolkit/XDropList.h"
#include "toolkit/XTabPage.h"
#include "toolkit/XToolTip.h"
#include "toolkit/XWindow.h"

#include <commctrl.h>
#include <shellapi.h>

#include <functional>

// What tests put in place of the real thing.
struct clSetUpSeams {
    // Opens a file or an address as the shell does, in the folder of the file.
    std::function<void(const XString& target)> openDocument;
    // Asks for a folder, with one selected at first (empty: none). Empty: cancelled.
    std::function<XString(HWND owner, const XString& selected)> chooseFolder;
    clEffectSeams effects;
};

enum clEncoderRow : std::uint32_t {
    rowEncoder = 0,
    rowNotInstalled = 1,
    rowNewProfile = 3, // a command, as the next
    rowDeleteProfile = 4,
    rowProfile = 5,
};

// What stands behind a row of the encoder list.
struct EncoderListItem {
    std::uint32_t Kind = rowEncoder; // clEncoderRow
    XString Text;                    // of rowNotInstalled: the address where it can be had
};

inline constexpr int longestNaming = 9999; // units of a naming template

class frmConvertToOpt final : public XWindow {
public:
    // Shows the form and returns when it has closed. `convert`: the user chose to convert. `files` is
    // borrowed; the user may add to it and leave files out.
    frmConvertToOpt(bool& convert, clFileList& files, clSetUpSeams seams = {});
    ~frmConvertToOpt() override;

    void OnClose() override; // drops what was changed since the current item was opened
    void OnInit() override;
    void OnDestroy() override;
    void OnPaint() override;
    void OnSysCommand(WPARAM command) override;
    void OnTimer(std::uint64_t id, std::uint64_t data) override;
    LRESULT PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                       std::uint32_t& handled) override;
    void OnOK() override;
    void OnCancel() override; // keeps what the user set, only the conversion does not happen

private:
    // Encoders, encoders that could be installed, two commands and profiles in one list.
    class _CmbEncoders final : public XDropList {
    public:
        explicit _CmbEncoders(frmConvertToOpt& form) : form(form) {}
        void Bind(HWND combo);
        LRESULT OnMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                          std::uint32_t& handled) override;
        void OnChanging() override;
        void Fill(); // and selects the item of the last time
        [[nodiscard]] bool IsOnCommand() const;

    private:
        [[nodiscard]] HICON IconOf(const XString& encoder); // borrowed
        void Add(std::uint32_t kind, const wchar_t* text, HICON icon, const wchar_t* address = L"",
                 COLORREF colour = 0);
        void AddEncoders();
        void AddInstallable();
        void AddCommands();
        void AddProfiles();
        [[nodiscard]] int FindRow(const XString& text) const; // exact; -1 if there is none
        void Select(int row);                                 // clamped
        void PassOverCommands();
        void AskToInstall(int row);
        void ProfileCommand(bool isDelete);
        void CreateProfile(int current);
        void DeleteProfile(int current);

        frmConvertToOpt& form;
        bool isStepping = false; // an arrow key or the wheel moves the selection
        int stepFrom = -1;
        XArray<EncoderListItem> Items; // parallel to the rows
        XStringArray iconNames;        // encoders that were asked for their icon
        XArray<XIcon> icons;           // parallel to iconNames
    };

    using _DSPList = EffectChainList;
    class _TabOptions final : public XTabPage {};

    struct ImageListKind {
        using Value = HIMAGELIST;
        static Value None() noexcept { return nullptr; }
        static void Close(Value v) noexcept { ImageList_Destroy(v); }
    };

    // Initialisation
    void LoadHints();
    void MakeOptions();
    void OpenHelp();
    [[nodiscard]] bool Command(int id);

    // The item: an encoder or a profile, with all that belongs to it
    void OnEncoderChanged(bool first);
    void OpenPanel(const XString& item);
    XString CloseEncoderPanel(bool save); // the last settings text; empty without a panel
    void SaveItemSettings(const XString& item, const XString& encoderSettings);
    void LoadItemSettings(bool first);
    [[nodiscard]] XString LiveEncoderSettings() const; // the panel stays
    [[nodiscard]] bool AnswersYes(const wchar_t* key) const;
    void ShowChanges(std::uint32_t mode, std::uint32_t shownMode, bool folderChanged, bool effectsChanged);
    void SaveFormState();

    // Output location
    void FillFolders(); // from the last time
    void SaveFolders();
    void UpdateOutputControls();
    XString AddFolderToList(const XString& path, bool onlyIfExists); // the shown form
    [[nodiscard]] XString OutputFolder() const;                      // resolved
    [[nodiscard]] XString NamingTemplate() const;
    [[nodiscard]] clOutputChoice OutputChoice() const;
    void ShowOutputChoice(const clOutputChoice& choice);
    void Browse();
    void EditNaming();

    // Files
    void UpdateFileCount();
    void TakeDroppedFiles(HDROP drop);
    void ListAndRename();

    _CmbEncoders EncoderList{*this};
    clZtEncoder Encoder; // whose panel is open
    XString CurrentItem; // of the open panel; empty: there is none, and nothing is to be saved
    XKernelHandle AddFilesEvent;
    std::uint8_t DisableSameFolder = 0, DisableConvertToFolder = 0; // answers of the current encoder
    XDropList FolderList;
    XToolTip ToolTip;
    XBitmap HintDynamic, HintFolder;
    _TabOptions Options;
    XOwned<ImageListKind> TabImages;
    XOwnerMenu EffectMenu;
    clFileList* Files; // borrowed
    _DSPList EffectList;

    clSetUpSeams seams;
    bool isReviewing = false; // the list form walks the files: they must not grow
};
