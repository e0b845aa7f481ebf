// The effect library "Resample": another rate and another depth. Settings: -rate="HERTZ|source"
// -quality="veryhigh|high" -bits="source|16|24|32|float" -dither="triangular|shaped|none"
// -only="any|down".
#include "plugins/dsp/EffectExports.h"
#include "plugins/dsp/RateAndDepth.h"
#include "plugins/dsp/ResamplePanel.h"

namespace {
using clResample = StreamEffect<RateAndDepth, ResamplePanel>;
}

ZT_EFFECT_EXPORTS(clResample)
