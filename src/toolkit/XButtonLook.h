// What a button shows: which face or which frame of its bitmap belongs to its state.
#pragma once

#include <cstdint>

// What a button has beside its normal and its pressed look.
enum clButtonFlags : std::uint32_t {
    buttonHover = 2,
    buttonFocus = 4, // takes the focus, too: by Tab and by click
    buttonDisabled = 8,
    buttonHeldOn = 16,
    buttonMask = 0x80,    // the lower half of the bitmap is the mask
    buttonStandard = 135, // what 0 stands for
    buttonAllFaces = 2 | 4 | 8 | 16,
};

enum clButtonState : std::uint32_t {
    buttonNormal = 0,
    buttonPressed = 1,
    buttonHovered = 2, // under the cursor
    buttonOn = 3,      // held on
};

enum class clButtonFace { Normal, Pressed, Hover, Focus, Disabled, HeldOn };

// The state that a button with `Toggle` draws for its own. `atClick`: the cursor has not moved since
// the click, which is not to show the hover look at once.
[[nodiscard]] std::uint32_t ToggledState(std::uint32_t state, bool atClick) noexcept;
// The face of a state. Never Focus, which goes on top.
[[nodiscard]] clButtonFace ButtonFace(std::uint32_t flags, std::uint32_t state, bool disabled) noexcept;
// How many frames stand side by side in the bitmap, and the place of one from 0; -1 when the strip
// has none of that kind.
[[nodiscard]] int ButtonFrames(std::uint32_t flags) noexcept;
[[nodiscard]] int ButtonFrameIndex(std::uint32_t flags, clButtonFace face) noexcept;
