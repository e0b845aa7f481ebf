// The id of a batch, which no other running program has, and its own temporary folder.
#pragma once

#include "foundation/XHandles.h"
#include "foundation/XString.h"

#include <cstdint>

class clBatch {
public:
    clBatch() = default;
    ~clBatch() { RemoveFolder(); }
    clBatch(const clBatch&) = delete;
    clBatch& operator=(const clBatch&) = delete;

    // Takes an id and makes the folder; adds to `chainText` the effect that the encoder requires.
    void Begin(XString& chainText, const XString& codecName, const XString& encoderSettings);
    // With all that it holds; the path is empty afterwards.
    void RemoveFolder();

    std::uint32_t batchId = 0; // 0: not begun, or ended
    XString temporaryFolder;   // without trailing backslash; empty: none
    XKernelHandle mutex;       // holds the name "mutZtBatchID" + id

private:
    void TakeId();
};
