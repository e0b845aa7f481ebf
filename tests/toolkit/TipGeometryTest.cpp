// Where tips stand, when they show and fade, and which face a button shows.
#include "toolkit/XButtonLook.h"
#include "toolkit/XTipGeometry.h"

#include <gtest/gtest.h>

namespace {
struct PlaceRow {
    const char* what;
    clTipPlace place;
    int x, y;
};
const PlaceRow placeRows[] = {
    {"above the anchor", {false, 0, 0, 300, 320, {100, 310}, 80, 30, 1000}, 100, 268},
    {"below an anchor at the screen's top", {false, 0, 0, 0, 20, {100, 10}, 80, 30, 1000}, 100, 21},
    {"near the cursor on a tall anchor", {false, 0, 0, 100, 900, {100, 800}, 80, 30, 1000}, 100, 720},
    {"just near enough", {false, 0, 0, 100, 900, {100, 148}, 80, 30, 1000}, 100, 68},
    {"below the cursor on a tall anchor at the top", {false, 0, 0, 0, 900, {9, 30}, 80, 30, 1000}, 9, 80},
    {"ends at the desktop's edge", {false, 0, 0, 300, 320, {950, 310}, 80, 30, 1000}, 920, 268},
    {"fixed, whatever the cursor", {true, 400, 500, 0, 0, {1, 1}, 80, 30, 1000}, 400, 468},
    {"fixed at the screen's top", {true, 400, 10, 0, 0, {900, 900}, 80, 30, 1000}, 400, 11},
};

TEST(XTipGeometry, TipStandsNearItsTarget) {
    for (const PlaceRow& row : placeRows) {
        const clTipPoint at = PlaceTip(row.place);
        EXPECT_EQ(at.X, row.x) << row.what;
        EXPECT_EQ(at.Y, row.y) << row.what;
    }
}

struct AlphaRow {
    std::uint32_t hold, elapsed;
    int alpha;
};
constexpr AlphaRow alphaRows[] = {
    {3000, 0, 255},    {3000, 2000, 255}, {3000, 2004, 254}, {3000, 2500, 128}, {3000, 3000, 0},
    {9000, 6500, 255}, {9000, 6510, 254}, {9000, 9000, 0},   {2, 1, 255},       {3, 3, 0},
};

TEST(XTipGeometry, OpacityFallsOverTheLastThird) {
    for (const AlphaRow& row : alphaRows)
        EXPECT_EQ(TipAlpha(row.hold, row.elapsed), row.alpha) << row.hold << " at " << row.elapsed;
}

// A tip's life as rows of ticks; times count from shortly before the tick counter's wrap.
struct StepRow {
    std::uint32_t at;
    bool wanted;
    clTipStep step;
    int alpha;
};
constexpr StepRow lifeRows[] = {
    {0, true, clTipStep::None, -1},     {1000, true, clTipStep::None, -1},
    {1001, true, clTipStep::Show, -1},  {1050, true, clTipStep::Fade, 255},
    {2900, true, clTipStep::None, 255}, {3501, true, clTipStep::Fade, 128},
    {4001, true, clTipStep::Fade, 0},   {4002, true, clTipStep::Hide, 0},
    {9000, true, clTipStep::None, 0},   {9050, false, clTipStep::None, 0},
    {9100, true, clTipStep::None, 0},   {9900, false, clTipStep::None, 0},
    {9950, true, clTipStep::None, 0},   {10950, true, clTipStep::None, 0},
    {10951, true, clTipStep::Show, 0},  {11000, false, clTipStep::Hide, -1},
};

TEST(XTipGeometry, TimedOutTipComesBackOnlyAfterTheCursorLeft) {
    clTipTiming timing{.Delay = 0, .Hold = 3000};
    bool visible = false;
    for (const StepRow& row : lifeRows) {
        const clTipStep step = StepTip(timing, row.wanted, visible, row.at - 2000u);
        EXPECT_EQ(step, row.step) << row.at;
        if (step == clTipStep::Show) { // as the window does
            visible = true;
            timing.Shown = 1;
            timing.LastAlpha = -1;
        }
        if (step == clTipStep::Hide)
            visible = false;
        if (step == clTipStep::Fade) {
            EXPECT_EQ(timing.LastAlpha, row.alpha) << row.at;
        }
    }
}

TEST(XTipGeometry, TipsThatDoNotFade) {
    struct Row {
        std::uint32_t hold;
        std::uint8_t noFade;
        std::uint32_t elapsed;
        clTipStep step;
    };
    constexpr Row rows[] = {
        {clTipTiming::forever, 0, 0xFFFFFFF0, clTipStep::None},
        {clTipTiming::forever - 1, 0, 5000000, clTipStep::None},
        {3000, 1, 2999, clTipStep::None},
        {3000, 1, 3001, clTipStep::Hide},
    };
    for (const Row& row : rows) {
        clTipTiming timing{.Delay = 1, .Hold = row.hold, .NoFade = row.noFade, .ShownAt = 7, .Shown = 1};
        EXPECT_EQ(StepTip(timing, true, true, 7 + row.elapsed), row.step) << row.hold << ' ' << row.elapsed;
    }
}

TEST(XButtonLook, StripHoldsTheFramesThatTheFlagsName) {
    struct Row {
        std::uint32_t flags;
        int count;
        int index[6]; // normal, pressed, hover, focus, disabled, held on
    };
    constexpr Row rows[] = {
        {0x81, 2, {0, 1, -1, -1, -1, -1}}, {135, 4, {0, 1, 2, 3, -1, -1}},    {30, 6, {0, 1, 2, 3, 4, 5}},
        {8, 3, {0, 1, -1, -1, 2, -1}},     {16 | 4, 4, {0, 1, -1, 2, -1, 3}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ButtonFrames(row.flags), row.count) << row.flags;
        for (int face = 0; face < 6; ++face)
            EXPECT_EQ(ButtonFrameIndex(row.flags, static_cast<clButtonFace>(face)), row.index[face])
                << row.flags << " face " << face;
    }
}

TEST(XButtonLook, MissingFacesFallBack) {
    using enum clButtonFace;
    struct Row {
        std::uint32_t flags, state;
        bool disabled;
        clButtonFace face;
    };
    constexpr Row rows[] = {
        {30, 0, false, Normal}, {30, 1, false, Pressed}, {30, 2, false, Hover},   {30, 3, false, HeldOn},
        {4, 2, false, Normal},  {4, 3, false, Pressed},  {30, 2, true, Disabled}, {4, 1, true, Pressed},
    };
    for (const Row& row : rows)
        EXPECT_EQ(ButtonFace(row.flags, row.state, row.disabled), row.face) << row.flags << ' ' << row.state;
    constexpr std::uint32_t toggled[] = {1, 0, 3, 2};
    for (std::uint32_t state = 0; state < 4; ++state)
        EXPECT_EQ(ToggledState(state, false), toggled[state]) << state;
    EXPECT_EQ(ToggledState(buttonHovered, true), std::uint32_t{buttonPressed});
}
} // namespace
