// States of the chain of effects on the set-up form.
#pragma once

#include "../forms/FormDriver.h"

// Each ends with the step `hold`, which never comes to its end.
void ShowEffects(const FormDriver::Step& hold); // three, one of them missing
void ShowEffectsMenu(const FormDriver::Step& hold);
void ShowEffectSettingsOf(const wchar_t* effect, const FormDriver::Step& hold);
