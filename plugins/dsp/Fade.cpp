// The effect library "Fade": fades in and out. Settings:
// -in="MS" -out="MS" -curve="cosine|linear|logarithmic".
#include "plugins/dsp/EffectExports.h"
#include "plugins/dsp/FadePanel.h"
#include "plugins/dsp/Fader.h"

namespace {
using clFade = StreamEffect<Fader, FadePanel>;
}

ZT_EFFECT_EXPORTS(clFade)
