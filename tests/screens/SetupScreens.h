// States of the set-up form and of the form for a new profile.
#pragma once

#include "../forms/FormDriver.h"

// Each ends with the step `hold`, which never comes to its end.
void ShowSetup(const wchar_t* encoder, const FormDriver::Step& hold);
void ShowSetupList(const FormDriver::Step& hold);    // the encoder list open
void ShowSetupBalloon(const FormDriver::Step& hold); // after a change of the item
void ShowNewProfile(const FormDriver::Step& hold);
