// The generator against the numbers of its publication.
#include "foundation/XRandom.h"

#include <gtest/gtest.h>

TEST(XRandom, GivesTheKnownSequence) {
    XMersenneTwister random(5489);
    EXPECT_EQ(random.Next(), 3499211612u);
    for (int i = 2; i < 10000; ++i)
        static_cast<void>(random.Next());
    EXPECT_EQ(random.Next(), 4123659995u);
}
