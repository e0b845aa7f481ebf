// The form of the configuration program.
#pragma once

#include "../forms/FormDriver.h"

// Ends with the step `hold`, which never comes to its end.
void ShowConfig(const FormDriver::Step& hold);
