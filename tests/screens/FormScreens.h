// States of the forms, each shown by a function and held for its picture.
#pragma once

#include "../forms/FormDriver.h"

// Drives a form through the steps, and holds it then: that step never comes to its end.
[[nodiscard]] FormDriver HoldAfter(std::vector<FormDriver::Step> steps);

// The form of the configuration program.
void ShowConfig();

// The chain of effects on the set-up form.
void ShowEffects(); // three, one of them missing
void ShowEffectsMenu();
void ShowEffectSettingsOf(const wchar_t* effect);

// The list of files to convert.
void ShowList();       // maximised, as it opens
void ShowListSmall();  // resized, without the hint
void ShowListLeast();  // at its least size
void ShowListRename(); // of middle size, with the edit of a row open
void ShowListMenu();

// The dialog of naming templates.
void ShowNaming();
void ShowNamingFunctions(); // the heading in the list, a long template
void ShowNamingRefused();

// The overwrite form.
void ShowOverwrite();
void ShowOverwriteSmall();  // at its least size
void ShowOverwriteRename(); // large, with the edit of a row open
void ShowOverwriteMenu();

// The set-up form and the form for a new profile.
void ShowSetup(const wchar_t* encoder);
void ShowSetupList();    // the encoder list open
void ShowSetupBalloon(); // after a change of the item
void ShowNewProfile();
