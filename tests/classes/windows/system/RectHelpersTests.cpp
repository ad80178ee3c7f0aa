#include "classes/windows/system/RectHelpers.h"

#include <gtest/gtest.h>

TEST(RectHelpers, MovingKeepsTheSizeAndIgnoresNull)
{
    RECT rc{1, 2, 11, 22};
    MoveRect(&rc, 5, -7);
    const RECT rcMoved{6, -5, 16, 15};
    EXPECT_TRUE(EqualRect(&rc, &rcMoved));
    EXPECT_EQ(GetRectWidth(rc), 10);
    EXPECT_EQ(GetRectHeight(rc), 20);
    MoveRect(nullptr, 1, 1);
}

TEST(RectHelpers, TheRightAndBottomEdgesLieOutside)
{
    const RECT rc{0, 0, 10, 10};
    EXPECT_TRUE(PointInRect(rc, {0, 0}));
    EXPECT_TRUE(PointInRect(rc, {9, 9}));
    EXPECT_FALSE(PointInRect(rc, {10, 5}));
    EXPECT_FALSE(PointInRect(rc, {5, 10}));
    EXPECT_EQ(ToRect(RECT{1, 2, 3, 4}), ToRect(ToRECT(ToRect(RECT{1, 2, 3, 4}))));
}
