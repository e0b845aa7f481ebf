// The effect library "Multi-CPU Force": leaves audio alone. Its settings, -cpu1 to -cpu16 and -noally,
// are read by the program itself when it shares the batch out among the processors.
#include "plugins/dsp/EffectExports.h"
#include "plugins/dsp/MultiCpuPanel.h"

namespace {

class clMultiCpuForce : public EffectBase {
public:
    MultiCpuPanel panel;
};

} // namespace

ZT_EFFECT_EXPORTS(clMultiCpuForce)
