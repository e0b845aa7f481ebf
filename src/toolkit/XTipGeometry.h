// Where a tool tip stands and when it shows, fades and ends.
#pragma once

#include <cstdint>

struct clTipPoint {
    int X = 0, Y = 0;
};

// In screen pixels. `Top` and `Bottom` are those of the anchor or the area; unused when `Fixed`.
struct clTipPlace {
    bool Fixed = false;
    int FixedX = 0, FixedY = 0;
    int Top = 0, Bottom = 0;
    clTipPoint Cursor;
    int Width = 0, Height = 0; // of the tip
    int DesktopRight = 0;      // where tips end at the latest
};

// The top left corner of the tip.
[[nodiscard]] clTipPoint PlaceTip(const clTipPlace& place) noexcept;

// Times are ticks in milliseconds, unsigned with wrap-around.
struct clTipTiming {
    static constexpr std::uint32_t forever = 0xFFFFFFFF;

    std::uint32_t Delay = 0; // from the first hover; 0 becomes 1000
    std::uint32_t Hold = 0;  // how long it shows; 0 becomes 10000
    std::uint8_t NoFade = 0;
    std::uint32_t HoverStart = 0; // 0 while the cursor is elsewhere
    std::uint32_t ShownAt = 0;
    std::uint32_t Shown = 0; // shown, or timed out, since the cursor came
    std::int32_t LastAlpha = -1;
};

enum class clTipStep { None, Show, Hide, Fade }; // Fade: LastAlpha is the new opacity, 0..255

// One tick of a tip. `wanted`: the cursor is where the tip belongs; `visible`: its window shows.
[[nodiscard]] clTipStep StepTip(clTipTiming& timing, bool wanted, bool visible, std::uint32_t now) noexcept;
// The opacity after `elapsed` milliseconds of `hold`: falls over the last third, 2500 at most.
[[nodiscard]] int TipAlpha(std::uint32_t hold, std::uint32_t elapsed) noexcept;
