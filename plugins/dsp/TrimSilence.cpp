// The effect library "Trim Silence": cuts silence off the start and the end. Settings:
// -threshold="DB" -minimum="MS" -keep="MS" -at="both|start|end".
#include "plugins/dsp/EffectExports.h"
#include "plugins/dsp/SilenceTrimmer.h"
#include "plugins/dsp/TrimPanel.h"

namespace {
using clTrimSilence = StreamEffect<SilenceTrimmer, TrimPanel>;
}

ZT_EFFECT_EXPORTS(clTrimSilence)
