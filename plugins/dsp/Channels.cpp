// The effect library "Channels": mono, stereo, one side, sides exchanged. Settings:
// -to="stereo|mono|swap|left|right".
#include "plugins/dsp/ChannelMixer.h"
#include "plugins/dsp/ChannelsPanel.h"
#include "plugins/dsp/EffectExports.h"

namespace {
using clChannels = StreamEffect<ChannelMixer, ChannelsPanel>;
}

ZT_EFFECT_EXPORTS(clChannels)
