#include "classes/core/CRect.h"

#include <gtest/gtest.h>
#include <limits>

namespace
{

constexpr CRect c_rc{-10, 5, 20, 15};

TEST(Rect, WidthAndHeightAreDifferencesOfEdges)
{
    EXPECT_EQ(c_rc.GetWidth(), 30);
    EXPECT_EQ(c_rc.GetHeight(), 10);
}

TEST(Rect, EdgesThatMeetOrAreInTheWrongOrderMakeItEmpty)
{
    EXPECT_FALSE(c_rc.IsEmpty());
    EXPECT_TRUE(CRect{}.IsEmpty());
    EXPECT_TRUE((CRect{3, 0, 3, 9}).IsEmpty());
    EXPECT_TRUE((CRect{0, 9, 3, 8}).IsEmpty());
}

TEST(Rect, TheIntersectionHoldsThePixelsThatBothShare)
{
    EXPECT_EQ(Intersect(c_rc, {0, 0, 100, 10}), (CRect{0, 5, 20, 10}));
    EXPECT_EQ(Intersect(c_rc, c_rc), c_rc);
    EXPECT_EQ(Intersect(c_rc, {-100, -100, 100, 100}), c_rc);
}

TEST(Rect, RectanglesThatOnlyTouchShareNothing)
{
    EXPECT_EQ(Intersect(c_rc, {20, 5, 30, 15}), CRect{});
    EXPECT_EQ(Intersect(c_rc, {100, 100, 200, 200}), CRect{});
    EXPECT_EQ(Intersect(c_rc, {15, 10, 15, 10}), CRect{});
}

TEST(Rect, TheWholeRangeOfIntegersIntersects)
{
    constexpr int iMin = std::numeric_limits<int>::min();
    constexpr int iMax = std::numeric_limits<int>::max();
    EXPECT_EQ(Intersect({iMin, iMin, iMax, iMax}, c_rc), c_rc);
}

TEST(Rect, HalfOpenContainsTheLeftAndTopEdgeOnly)
{
    EXPECT_TRUE(ContainsHalfOpen(c_rc, {-10, 5}));
    EXPECT_TRUE(ContainsHalfOpen(c_rc, {19, 14}));
    EXPECT_FALSE(ContainsHalfOpen(c_rc, {20, 14}));
    EXPECT_FALSE(ContainsHalfOpen(c_rc, {19, 15}));
    EXPECT_FALSE(ContainsHalfOpen(c_rc, {-11, 5}));
    EXPECT_FALSE(ContainsHalfOpen(c_rc, {-10, 4}));
}

TEST(Rect, InclusiveContainsAllFourEdges)
{
    EXPECT_TRUE(ContainsInclusive(c_rc, {-10, 5}));
    EXPECT_TRUE(ContainsInclusive(c_rc, {20, 15}));
    EXPECT_FALSE(ContainsInclusive(c_rc, {21, 15}));
    EXPECT_FALSE(ContainsInclusive(c_rc, {20, 16}));
    EXPECT_FALSE(ContainsInclusive(c_rc, {-11, 5}));
    EXPECT_FALSE(ContainsInclusive(c_rc, {-10, 4}));
}

} // namespace
