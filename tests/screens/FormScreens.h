// States of the forms, each by a function that ends with the step `hold`, which never comes to its end.
#pragma once

#include "../forms/FormDriver.h"

// The form of the configuration program.
void ShowConfig(const FormDriver::Step& hold);

// The chain of effects on the set-up form.
void ShowEffects(const FormDriver::Step& hold); // three, one of them missing
void ShowEffectsMenu(const FormDriver::Step& hold);
void ShowEffectSettingsOf(const wchar_t* effect, const FormDriver::Step& hold);

// The list of files to convert.
void ShowList(const FormDriver::Step& hold);       // maximised, as it opens
void ShowListSmall(const FormDriver::Step& hold);  // resized, without the hint
void ShowListLeast(const FormDriver::Step& hold);  // at its least size
void ShowListRename(const FormDriver::Step& hold); // of middle size, with the edit of a row open
void ShowListMenu(const FormDriver::Step& hold);

// The dialog of naming templates.
void ShowNaming(const FormDriver::Step& hold);
void ShowNamingFunctions(const FormDriver::Step& hold); // the heading in the list, a long template
void ShowNamingRefused(const FormDriver::Step& hold);

// The overwrite form.
void ShowOverwrite(const FormDriver::Step& hold);
void ShowOverwriteSmall(const FormDriver::Step& hold);  // at its least size
void ShowOverwriteRename(const FormDriver::Step& hold); // large, with the edit of a row open
void ShowOverwriteMenu(const FormDriver::Step& hold);

// The set-up form and the form for a new profile.
void ShowSetup(const wchar_t* encoder, const FormDriver::Step& hold);
void ShowSetupList(const FormDriver::Step& hold);    // the encoder list open
void ShowSetupBalloon(const FormDriver::Step& hold); // after a change of the item
void ShowNewProfile(const FormDriver::Step& hold);
