// At the end of a batch: the gain of each album, out of what was measured of its outputs. Windows only.
#pragma once

#include "foundation/XTagList.h"
#include "plugins/dsp/GainStore.h"

// Writes gain and peak of its album into each output of the rows that did not fail. Lines of `error` name
// the files that it could not change; those stay as they are.
void WriteAlbumGains(const XTagList& results, const GainStore& store, XString& error);
