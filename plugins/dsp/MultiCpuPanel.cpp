#include "plugins/dsp/MultiCpuPanel.h"

#include "plugins/dsp/PanelIds.h"

namespace {

constexpr int mostProcessors = 16;
constexpr wchar_t freeOption[] = L"noally";

int ProcessorsHere() noexcept {
    SYSTEM_INFO info{};
    GetSystemInfo(&info);
    return static_cast<int>(info.dwNumberOfProcessors);
}

XString OptionOf(int processor) {
    return L"cpu" + DecimalText(processor);
}

// The program asks only whether an option stands there; its value, even "0", means nothing.
void PutOption(SettingsText& settings, const wchar_t* name, bool on) {
    if (on == settings.Has(name))
        return;
    if (on)
        settings.Put(name, L"", L"-");
    else
        settings.Remove(name);
}

} // namespace

MultiCpuPanel::MultiCpuPanel() noexcept : PanelWindow(ID_PANEL) {}

void MultiCpuPanel::Fill(const SettingsText& settings) {
    const int here = ProcessorsHere();
    for (int processor = 1; processor <= mostProcessors; ++processor) {
        const int id = ID_CPU_FIRST + processor - 1;
        const bool chosen = settings.Has(OptionOf(processor));
        SetChecked(id, chosen);
        // One that is chosen and not there can still be given up.
        EnableWindow(Control(id), processor <= here || chosen);
    }
    SetChecked(ID_CPU_FREE, settings.Has(freeOption));
}

void MultiCpuPanel::Collect(SettingsText& settings) {
    for (int processor = 1; processor <= mostProcessors; ++processor)
        PutOption(settings, OptionOf(processor), IsChecked(ID_CPU_FIRST + processor - 1));
    PutOption(settings, freeOption, IsChecked(ID_CPU_FREE));
}

void MultiCpuPanel::OnChanged(int) {
    int chosen = 0, beyond = 0;
    for (int processor = 1; processor <= mostProcessors; ++processor)
        if (IsChecked(ID_CPU_FIRST + processor - 1)) {
            ++chosen;
            beyond += processor > ProcessorsHere() ? 1 : 0;
        }
    XString summary = chosen < 2 ? XString(L"One file at a time is converted")
                                 : DecimalText(chosen) + L" files at a time are converted";
    summary += chosen == 0              ? L", as no processor is chosen."
               : IsChecked(ID_CPU_FREE) ? L", on whichever processors Windows gives them."
               : chosen == 1            ? L", on this processor."
                                        : L", each on a processor of its own.";
    if (beyond > 0)
        summary += L" This computer has only " + DecimalText(ProcessorsHere()) + L" processors.";
    SetText(ID_SUMMARY, summary);
}
