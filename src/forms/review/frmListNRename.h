// The form that lists what the conversion will make of every file, before it runs: the name it will
// get, its source, type, length and estimated size. Files can be left out and outputs renamed there.
#pragma once

#include "forms/review/SourceKinds.h"
#include "foundation/XThread.h"
#include "host/ReadAhead.h"
#include "host/clFileList.h"
#include "host/clZtEncoder.h"
#include "toolkit/XListView.h"
#include "toolkit/XOwnerMenu.h"
#include "toolkit/XSizableDialog.h"

#include <vector>

class frmListNRename final : public XSizableDialog {
public:
    // Shows the form and returns when it has closed: `result` is 1 for OK, 0 for Cancel. OK writes
    // output paths (of renamed rows alone) and skip flags into `files`, which is borrowed and must
    // not grow meanwhile: a thread reads it ahead while the object lives. The folder is as the user
    // sees it, empty for that of the source; an empty template keeps the names of the sources.
    frmListNRename(int& result, HWND parent, clFileList& files, const XString& codecName,
                   const XString& outputFolder, const XString& encoderSettings,
                   const XString& namingTemplate);
    ~frmListNRename() override;

    void OnInit() override;
    void OnDestroy() override;
    void OnMouseWheel(int x, int y, int delta, WORD keys) override;
    void OnShow(LPARAM reason) override;
    void OnSize(int width, int height, WPARAM how) override;
    void OnTimer(std::uint64_t id, std::uint64_t data) override;
    LRESULT PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                       std::uint32_t& handled) override;
    void OnOK() override;

private:
    static constexpr UINT fillIntervalMs = 250;
    static constexpr std::uint64_t fillTimer = 1;

    class _lstView final : public XListView {
    public:
        explicit _lstView(frmListNRename& owner) : Owner(owner) {}
        void OnCheckChanged(int row, bool checked) override;
        void OnContextMenu(int x, int y, HWND window) override;

        frmListNRename& Owner;
    };

    void LoadEncoder();
    void Layout(int width, int height);
    void LimitSize(MINMAXINFO& limits) const;
    void AddColumns();
    void AddRows();
    void AddRow(int row, int outputIcon);
    void FindFreeSpace(const XString& destination);
    void StartReader();
    [[nodiscard]] XString DestinationText(clFileItem& file) const;
    [[nodiscard]] XString SourceDescription(const XString& path);
    void FillLateColumns();
    void FillRow(int row, int lengthMode);
    [[nodiscard]] bool IsEveryRowFilled() const;
    [[nodiscard]] bool IsNameMissing() const;
    void UpdateSummary();
    void CheckAll(bool checked);
    void ShowMenu(int x, int y);
    void Commit();

    _lstView List{*this};
    clFileList& Files; // borrowed
    XIcon RenameIcon;
    XString CodecName;
    XString OutputFolder;
    XString Extension; // of the outputs, with its dot; empty without an encoder
    XString EncoderSettings;
    XString NamingTemplate;
    XString FreeSpaceText;
    XOwnerMenu Menu;
    bool NoRename = false; // the encoder writes no files of its own
    XIcon CornerIcon;
    XString LastExtension, LastDescription; // of SourceDescription
    clReadAhead readAhead;                  // of the thread, outlives it
    XThread Reader;
    int NextRow = 0; // the first whose late columns are still to be filled
    clZtEncoder Encoder;

    clSourceKinds kinds;
    std::vector<std::int64_t> estimates; // bytes per row, 0: none
    std::vector<bool> checked;           // per row, as the boxes of the list
    XString shownSummary;
    bool isFilled = false;
    bool isSummaryDue = false; // a message for it is on its way
};
