#include "platform/twips.h"

#include <gtest/gtest.h>

using tolvinpt::Twips;

TEST(TwipsTest, ConvertsAtTheLogicalDpi)
{
    const Twips at96(96, 96);
    EXPECT_EQ(at96.x(1440), 96);
    EXPECT_EQ(at96.y(15), 1);
    EXPECT_EQ(at96.size(10245, 6735), QSize(683, 449));
    const Twips at120(120, 144);
    EXPECT_EQ(at120.x(1440), 120);
    EXPECT_EQ(at120.y(1440), 144);
}

TEST(TwipsTest, AdjacentRectanglesStayAdjacent)
{
    // 7 px per 100 twips does not divide evenly: edges are rounded, not sizes.
    const Twips odd(100.8, 100.8);
    const QRect left = odd.rect(100, 0, 1005, 300);
    const QRect right = odd.rect(1105, 0, 1005, 300);
    EXPECT_EQ(left.right() + 1, right.left());
    EXPECT_EQ(odd.rect(0, 0, 10, 10).topLeft(), QPoint(0, 0));
}
