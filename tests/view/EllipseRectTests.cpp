#include "view/EllipseRect.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{

CAtom MakeAtom(float fX, float fY, std::uint8_t uRadius)
{
    CAtom atom;
    atom.x = fX;
    atom.y = fY;
    atom.radius = uRadius;
    return atom;
}

} // namespace

TEST(EllipseRect, IsTheCircleMovedByTheWorldsCorner)
{
    EXPECT_EQ((CRect{107, 217, 113, 223}), GetEllipseRect(MakeAtom(10.0F, 20.0F, 3), {100, 200}));
    EXPECT_EQ((CRect{-4, -3, 0, 1}), GetEllipseRect(MakeAtom(98.0F, 199.0F, 2), {-100, -200}));
}

TEST(EllipseRect, CornersAreRoundedHalfAwayFromZero)
{
    EXPECT_EQ((CRect{2, 2, 8, 8}), GetEllipseRect(MakeAtom(5.25F, 5.49F, 3), {0, 0}));
    EXPECT_EQ((CRect{3, 3, 9, 9}), GetEllipseRect(MakeAtom(5.5F, 5.75F, 3), {0, 0}));
    EXPECT_EQ((CRect{-3, -3, 4, 4}), GetEllipseRect(MakeAtom(0.5F, 0.5F, 3), {0, 0})); // -2.5 and 3.5
}

// At 9,999 a float has steps of 0.00098: the sum left + x is rounded to one before the radius is taken off.
TEST(EllipseRect, SumsAreFormedInSinglePrecision)
{
    const CAtom atom = MakeAtom(0.50001F, 0.0F, 1);
    ASSERT_EQ(9999.5F, 9999.0F + atom.x);
    EXPECT_EQ(9999, GetEllipseRect(atom, {9999, 0}).left); // 9998.5 rounds up
    const CAtom atomBelow = MakeAtom(0.4999F, 0.0F, 1);
    EXPECT_EQ(9999, GetEllipseRect(atomBelow, {9999, 0}).left); // the sum has become 9999.5 as well
}

TEST(EllipseRect, CornersOutsideAnIntegersRangeStopAtItsEnds)
{
    const CRect rc = GetEllipseRect(MakeAtom(1e30F, -1e30F, 3), {0, 0});
    EXPECT_EQ(std::numeric_limits<int>::max(), rc.left);
    EXPECT_EQ(std::numeric_limits<int>::min(), rc.top);
    EXPECT_EQ((CRect{0, 2, 0, 8}), GetEllipseRect(MakeAtom(std::nanf(""), 5.0F, 3), {0, 0}));
}
