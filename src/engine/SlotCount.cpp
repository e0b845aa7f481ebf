// How many workers may run at once and on which processors.
#include "engine/SlotCount.h"

#include "foundation/XKeyValueList.h"
#include "host/EffectChain.h"

namespace {

// The user's own choice of processors. It overrules what the encoder and the number of files say.
constexpr wchar_t forcingEffect[] = L"Multi-CPU Force";

void ForceSlots(clSlotPlan& plan, const XString& settings) {
    const XKeyValueList options(settings);
    int chosen = 0;
    for (std::uint32_t processor = 1; processor <= maximumSlots; ++processor)
        if (options.Has(L"cpu" + UnsignedText(processor)))
            plan.processors[chosen++] = processor;
    plan.count = chosen > 0 ? chosen : 1;
    if (options.Has(L"noally"))
        for (std::uint32_t& processor : plan.processors)
            processor = 0;
}

} // namespace

clSlotPlan PlanSlots(int systemProcessors, bool noMultiCpu, std::int64_t fileCount,
                     const XString& chainText) {
    clSlotPlan plan;
    for (std::uint32_t i = 0; i < maximumSlots; ++i)
        plan.processors[i] = i + 1;
    plan.count = systemProcessors < maximumSlots ? systemProcessors : maximumSlots;
    if (noMultiCpu || plan.count < 1)
        plan.count = 1;
    if (fileCount > 0 && fileCount < plan.count)
        plan.count = static_cast<int>(fileCount);
    if (plan.count == 1)
        plan.processors[0] = 0;

    XArray<clChainEntry> chain;
    EffectChainFromText(chain, chainText);
    for (const clChainEntry& entry : chain)
        if (entry.name.Equals(forcingEffect))
            ForceSlots(plan, entry.settings);
    return plan;
}
