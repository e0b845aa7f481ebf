// What a button shows in which state.
#include "toolkit/XButtonLook.h"

namespace {
// The strip's order; a frame without a flag is always there.
struct FrameRow {
    clButtonFace face;
    std::uint32_t flag;
};
constexpr FrameRow frames[] = {
    {clButtonFace::Normal, 0},
    {clButtonFace::Pressed, 0},
    {clButtonFace::Hover, buttonHover},
    {clButtonFace::Focus, buttonFocus},
    {clButtonFace::Disabled, buttonDisabled},
    {clButtonFace::HeldOn, buttonHeldOn},
};

bool IsInStrip(const FrameRow& row, std::uint32_t flags) noexcept {
    return row.flag == 0 || (flags & row.flag) != 0;
}
} // namespace

std::uint32_t ToggledState(std::uint32_t state, bool atClick) noexcept {
    switch (state) {
    case buttonNormal:
        return buttonPressed;
    case buttonPressed:
        return buttonNormal;
    case buttonHovered:
        return atClick ? buttonPressed : buttonOn;
    case buttonOn:
        return buttonHovered;
    default:
        return state;
    }
}

clButtonFace ButtonFace(std::uint32_t flags, std::uint32_t state, bool disabled) noexcept {
    if (disabled && (flags & buttonDisabled))
        return clButtonFace::Disabled;
    switch (state) {
    case buttonPressed:
        return clButtonFace::Pressed;
    case buttonHovered:
        return flags & buttonHover ? clButtonFace::Hover : clButtonFace::Normal;
    case buttonOn:
        return flags & buttonHeldOn ? clButtonFace::HeldOn : clButtonFace::Pressed;
    default:
        return clButtonFace::Normal;
    }
}

int ButtonFrames(std::uint32_t flags) noexcept {
    int count = 0;
    for (const FrameRow& row : frames)
        count += IsInStrip(row, flags);
    return count;
}

int ButtonFrameIndex(std::uint32_t flags, clButtonFace face) noexcept {
    int index = 0;
    for (const FrameRow& row : frames) {
        if (row.face == face)
            return IsInStrip(row, flags) ? index : -1;
        index += IsInStrip(row, flags);
    }
    return -1;
}
