// Where a tool tip stands and when it shows, fades and ends.
#include "toolkit/XTipGeometry.h"

#include <algorithm>

namespace {
constexpr int farFromCursor = 50; // pixels that a tip may be away from the cursor
constexpr std::uint32_t defaultDelayMs = 1000;
constexpr std::uint32_t defaultHoldMs = 10000;
constexpr std::uint32_t longestFadeMs = 2500;
constexpr int opaque = 255;

std::uint32_t FadeLength(std::uint32_t hold) noexcept {
    return std::min(hold / 3, longestFadeMs);
}

clTipStep StepVisible(clTipTiming& timing, std::uint32_t now) noexcept {
    const std::uint32_t elapsed = now - timing.ShownAt;
    if (timing.Hold < clTipTiming::forever && elapsed > timing.Hold) {
        timing.Shown = 1; // not again before the cursor has left
        return clTipStep::Hide;
    }
    if (timing.Hold == 0 || timing.Hold >= clTipTiming::forever - 1 || timing.NoFade)
        return clTipStep::None;
    const int alpha = TipAlpha(timing.Hold, elapsed);
    if (alpha == timing.LastAlpha)
        return clTipStep::None;
    timing.LastAlpha = alpha;
    return clTipStep::Fade;
}

clTipStep StepHidden(clTipTiming& timing, std::uint32_t now) noexcept {
    if (timing.HoverStart == 0) {
        timing.HoverStart = now ? now : 1; // 0 means that the cursor is elsewhere
        if (timing.Delay == 0)
            timing.Delay = defaultDelayMs;
        if (timing.Hold == 0)
            timing.Hold = defaultHoldMs;
    }
    if (now - timing.HoverStart <= timing.Delay)
        return clTipStep::None;
    timing.HoverStart = 0;
    timing.ShownAt = now;
    return clTipStep::Show;
}
} // namespace

clTipPoint PlaceTip(const clTipPlace& place) noexcept {
    // A fixed place is a target without height.
    const int top = place.Fixed ? place.FixedY : place.Top;
    const int bottom = place.Fixed ? place.FixedY : place.Bottom;
    clTipPoint tip{place.Fixed ? place.FixedX : place.Cursor.X, top - place.Height - 2};
    // Tall targets reach far from the cursor: the tip keeps near it.
    if (!place.Fixed && place.Cursor.Y - tip.Y > place.Height + farFromCursor)
        tip.Y = place.Cursor.Y - place.Height - farFromCursor;
    if (tip.Y < 0) {
        tip.Y = bottom + 1;
        if (!place.Fixed && tip.Y - place.Cursor.Y > farFromCursor)
            tip.Y = place.Cursor.Y + farFromCursor;
    }
    tip.X = std::min(tip.X, place.DesktopRight - place.Width);
    return tip;
}

int TipAlpha(std::uint32_t hold, std::uint32_t elapsed) noexcept {
    const std::uint32_t fade = FadeLength(hold);
    const std::uint32_t start = hold - fade;
    if (fade == 0 || elapsed <= start)
        return opaque;
    return opaque - static_cast<int>(std::min(elapsed - start, fade) * opaque / fade);
}

clTipStep StepTip(clTipTiming& timing, bool wanted, bool visible, std::uint32_t now) noexcept {
    if (!wanted) {
        timing.HoverStart = 0;
        timing.Shown = 0;
        return visible ? clTipStep::Hide : clTipStep::None;
    }
    if (visible)
        return StepVisible(timing, now);
    return timing.Shown ? clTipStep::None : StepHidden(timing, now);
}
