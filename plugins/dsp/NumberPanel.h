// What panels with typed numbers share.
#pragma once

#include "plugins/common/PanelWindow.h"

struct NumberField {
    int id; // an edit control
    const wchar_t* option;
    int minimum, maximum;
    int usual; // what the effect takes without the option
};

class NumberPanel : public PanelWindow {
protected:
    using PanelWindow::PanelWindow;
    void FillNumber(const SettingsText& settings, const NumberField& field) const;
    void CollectNumber(SettingsText& settings, const NumberField& field) const;
    // As the effect will take it: what can't be read is the usual number.
    [[nodiscard]] int Number(const NumberField& field) const;
    [[nodiscard]] XString Seconds(const NumberField& field) const; // of milliseconds: "1.5 s"

    // A drop list of texts, and the word of an option for each of them; the first is usual.
    template <int count>
    void FillChoice(const SettingsText& settings, int id, const wchar_t* option,
                    const wchar_t* const (&words)[count], const wchar_t* const (&texts)[count]) const {
        for (int i = 0; i < count; ++i)
            AddItem(id, texts[i], i);
        ChooseItem(id, settings.Word(option, words));
    }
    template <int count>
    void CollectChoice(SettingsText& settings, int id, const wchar_t* option,
                       const wchar_t* const (&words)[count]) const {
        settings.Put(option, words[ChosenItem(id)], words[0]);
    }
};
