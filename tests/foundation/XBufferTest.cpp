// Sizes and positions of the byte block.
#include "foundation/XBuffer.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <utility>

TEST(XBuffer, SizesFollowTheBlock) {
    XBuffer buffer;
    ASSERT_TRUE(buffer.SetSize(10, false, true, 6));
    EXPECT_EQ(buffer.size, 16u); // a new block tells its slack too
    buffer.fill = 12;
    buffer.readPos = 11;
    buffer.Bytes()[0] = 7;
    ASSERT_TRUE(buffer.SetSize(5, true, false, 6));
    EXPECT_EQ(buffer.fill, 5u);
    EXPECT_EQ(buffer.readPos, 5u);
    ASSERT_TRUE(buffer.SetSize(100, true, false));
    EXPECT_EQ(buffer.Bytes()[0], 7);
    const XBuffer moved(std::move(buffer));
    EXPECT_EQ(moved.size, 100u);
    EXPECT_EQ(buffer.data, nullptr);
}

TEST(XBuffer, ExhaustionIsAResult) {
    XBuffer buffer;
    ASSERT_TRUE(buffer.Set("abc", 3));
    EXPECT_EQ(buffer.fill, 3u);
    EXPECT_FALSE(buffer.Set(nullptr, 3));
    EXPECT_FALSE(buffer.SetSize(UINT64_MAX, true, true, 2));
    EXPECT_EQ(buffer.size, 0u);
    EXPECT_EQ(buffer.capacity, 0u);
    EXPECT_EQ(buffer.fill, 0u);
    EXPECT_TRUE(buffer.Set("", 0));
}
