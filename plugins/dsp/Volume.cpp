// The effect library "Volume": brings files to one loudness or one peak, or changes them all alike.
// Settings: -loudness="LUFS", -peak="dBFS" or -gain="dB"; -limit="dBTP|off" -over="reduce|limit".
#include "plugins/dsp/EffectExports.h"
#include "plugins/dsp/VolumeChanger.h"
#include "plugins/dsp/VolumePanel.h"

namespace {
using clVolume = StreamEffect<VolumeChanger, VolumePanel>;
}

ZT_EFFECT_EXPORTS(clVolume)
