// Where the workers of a batch leave what they measured: files in the batch's own temporary folder, which
// goes with the batch, finished or cancelled. Windows only.
#pragma once

#include "plugins/dsp/GainMeasure.h"

class GainStore {
public:
    explicit GainStore(std::uint32_t batchId);
    [[nodiscard]] bool Keep(const GainMeasure& measure, XString& error) const;
    // False if nothing sound was kept of that output.
    [[nodiscard]] bool Find(const XString& output, GainMeasure& measure) const;
    void Remove() const;

private:
    XString folder; // with its backslash
};
