// States of the dialog of naming templates.
#pragma once

#include "../forms/FormDriver.h"

// Each ends with the step `hold`, which never comes to its end.
void ShowNaming(const FormDriver::Step& hold);
void ShowNamingFunctions(const FormDriver::Step& hold); // the heading in the list, a long template
void ShowNamingRefused(const FormDriver::Step& hold);
