// States of the list of files to convert.
#pragma once

#include "../forms/FormDriver.h"

// Each ends with the step `hold`, which never comes to its end.
void ShowList(const FormDriver::Step& hold);       // maximised, as it opens
void ShowListSmall(const FormDriver::Step& hold);  // resized, without the hint
void ShowListLeast(const FormDriver::Step& hold);  // at its least size
void ShowListRename(const FormDriver::Step& hold); // of middle size, with the edit of a row open
void ShowListMenu(const FormDriver::Step& hold);
