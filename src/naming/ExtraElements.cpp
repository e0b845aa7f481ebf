// The one list of extra elements.
#include "naming/ExtraElements.h"

XTagList zTMExtraElements;
