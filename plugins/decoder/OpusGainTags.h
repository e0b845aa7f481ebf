// Opus has ReplayGain's gains under names and in a unit of its own (RFC 7845, 5.2.1).
#pragma once

#include "foundation/XTagList.h"

// Turns "r128_track_gain", "-2102" into "replaygain_track_gain", "-3.21 dB", and the album's alike, in place
// of what stands under those names. The output gain of the file's header is in the decoded audio already.
void TurnFromOpusGains(XTagList& tags);
