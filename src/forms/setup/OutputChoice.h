// The rules of the output location on the set-up form: which radio button stays checked, what can be
// used, what is remembered.
#pragma once

#include "foundation/XArray.h"

// The three radio buttons. None of them is checked when the encoder rules all out.
struct clOutputChoice {
    bool original = false, folder = false, dynamic = false;
};

// What the current encoder does not offer. No chosen folder means no dynamic naming either.
struct clOutputLimits {
    bool noSameFolder = false, noChosenFolder = false;
};

struct clOutputEnabled {
    bool original = false, folder = false, dynamic = false;
    bool folderList = false; // and its button
    bool naming = false;     // and its button
};

[[nodiscard]] clOutputChoice AllowedChoice(clOutputChoice choice, const clOutputLimits& limits);
[[nodiscard]] clOutputEnabled EnabledControls(const clOutputChoice& choice, const clOutputLimits& limits);
[[nodiscard]] std::uint32_t OutputModeOf(const clOutputChoice& choice); // clOutputMode
[[nodiscard]] clOutputChoice ChoiceOfMode(std::uint32_t mode);          // none for an unknown number

inline constexpr int historyLength = 10;
// Replaces the content of `history`: the current folder, then the others in their order, each that
// equals the current one left out. All are paths; no more than historyLength come out.
void FolderHistory(XStringArray& history, const XString& current, const XStringArray& listed);
// False for an empty entry and for a network folder: looking for one that is gone takes long.
[[nodiscard]] bool IsRestoredFolder(const XString& path);

// What the balloon says after a change of the item; empty if nothing changed.
[[nodiscard]] XString ChangeMessage(bool locationChanged, bool effectsChanged);
[[nodiscard]] XString FileCountText(std::int64_t count);
