// Elements that the command line brings along for the naming templates of this run.
#pragma once

#include "foundation/XTagList.h"

// Filled once at start, before any form; forms' thread only.
extern XTagList zTMExtraElements;
