// Opus has ReplayGain's gains under names and in a unit of its own (RFC 7845, 5.2.1).
#pragma once

#include "foundation/XTagList.h"
#include "plugins/common/Information.h"

// Turns "replaygain_track_gain", "-3.21 dB" into "r128_track_gain", "-2102", and the album's alike,
// unless the tags have those already. The peaks, which Opus has no names for, go to `leftOut`.
void TurnIntoOpusGains(XTagList& tags, LeftOutTags& leftOut);
