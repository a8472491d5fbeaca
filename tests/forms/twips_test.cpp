#include "platform/widgets/twips.h"

#include <gtest/gtest.h>

using tolvinpt::Twips;

TEST(TwipsTest, ConvertsAtTheLogicalDpiAndKeepsAdjacentRectanglesAdjacent)
{
    EXPECT_EQ(Twips(96, 96).size(10245, 6735), QSize(683, 449));
    EXPECT_EQ(Twips(120, 144).size(1440, 1440), QSize(120, 144));
    // 7 px per 100 twips does not divide evenly: edges are rounded, not sizes.
    const Twips odd(100.8, 100.8);
    EXPECT_EQ(odd.rect(100, 0, 1005, 300).right() + 1, odd.rect(1105, 0, 1005, 300).left());
    EXPECT_EQ(odd.rect(0, 0, 10, 10).topLeft(), QPoint(0, 0));
}
