// A one-way anonymous pipe that is read without waiting.
#pragma once

#include "foundation/XBuffer.h"
#include "foundation/XHandles.h"

class XPipe {
public:
    [[nodiscard]] bool Create(); // closes what it holds
    // An inheritable duplicate for a child; the pipe has no write end of its own afterwards. None if
    // there is no write end.
    [[nodiscard]] XFileHandle TakeWriteEnd();
    // Everything that the pipe holds at this moment; valid until the next call. `broken` is set, never
    // cleared, when the other side is gone or a read failed.
    const XBuffer& ReadAvailable(bool* broken = nullptr);
    void Close() noexcept;

    XFileHandle readEnd;
    XFileHandle writeEnd;
    XBuffer buffer; // fill: bytes held
};
