// States of the overwrite form.
#pragma once

#include "../forms/FormDriver.h"

// Each ends with the step `hold`, which never comes to its end.
void ShowOverwrite(const FormDriver::Step& hold);
void ShowOverwriteSmall(const FormDriver::Step& hold);  // at its least size
void ShowOverwriteRename(const FormDriver::Step& hold); // large, with the edit of a row open
void ShowOverwriteMenu(const FormDriver::Step& hold);
