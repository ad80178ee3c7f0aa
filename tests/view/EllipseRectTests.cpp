#include "view/EllipseRect.h"

#include "classes/core/Dbl.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

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

TEST(EllipseRect, IsTheCirclesRectangleOffsetByTheWorldsCorner)
{
    EXPECT_EQ(GetEllipseRect(MakeAtom(10.0F, 20.0F, 3), {100, 200}), (CRect{107, 217, 113, 223}));
    EXPECT_EQ(GetEllipseRect(MakeAtom(98.0F, 199.0F, 2), {-100, -200}), (CRect{-4, -3, 0, 1}));
}

TEST(EllipseRect, CornersAreRoundedHalfAwayFromZero)
{
    EXPECT_EQ(GetEllipseRect(MakeAtom(5.25F, 5.49F, 3), {0, 0}), (CRect{2, 2, 8, 8}));
    EXPECT_EQ(GetEllipseRect(MakeAtom(5.5F, 5.75F, 3), {0, 0}), (CRect{3, 3, 9, 9}));
    EXPECT_EQ(GetEllipseRect(MakeAtom(0.5F, 0.5F, 3), {0, 0}), (CRect{-3, -3, 4, 4})); // -2.5 and 3.5
}

// At 9,999 a float has steps of 0.00098: the sum left + x is rounded to such a step before the radius is subtracted.
TEST(EllipseRect, SumsAreComputedInSinglePrecision)
{
    const CAtom atom = MakeAtom(0.50001F, 0.0F, 1);
    ASSERT_EQ(9999.0F + atom.x, 9999.5F);
    EXPECT_EQ(GetEllipseRect(atom, {9999, 0}).left, 9999); // 9998.5 rounds up
    const CAtom atomBelow = MakeAtom(0.4999F, 0.0F, 1);
    EXPECT_EQ(GetEllipseRect(atomBelow, {9999, 0}).left, 9999); // the rounded sum is also 9999.5
}

// An atom that is read between two writes may have any position while it is drawn.
TEST(EllipseRect, APositionOutsideEveryWorldGivesARectangleOutsideEveryView)
{
    constexpr int c_iEnd = 1 << 30;
    const CRect rc = GetEllipseRect(MakeAtom(1e30F, -1e30F, 3), {0, 0});
    EXPECT_EQ(rc, (CRect{c_iEnd, -c_iEnd, c_iEnd, -c_iEnd}));
    EXPECT_EQ(GetEllipseRect(MakeAtom(std::nanf(""), 5.0F, 3), {0, 0}).left, -c_iEnd);
    EXPECT_EQ(GetEllipseRect(MakeAtom(std::numeric_limits<float>::infinity(), 5.0F, 3), {0, 0}).right, c_iEnd);
}

// Compares the fast form with the general one, for every exponent of a float.
TEST(RoundToPixel, EqualsRoundingHalfAwayFromZero)
{
    std::mt19937 random(3);
    constexpr int c_iNumbers = 1'000'000;
    constexpr float c_fEnd = 2147483648.0F;
    for (int i = 0; i < c_iNumbers; ++i)
    {
        const float fPosition = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (std::fabs(fPosition) < c_fEnd)
        {
            ASSERT_EQ(RoundToPixel(fPosition), static_cast<int>(Dbl_Round(static_cast<double>(fPosition), 0)))
                << fPosition;
        }
    }
    constexpr int c_iHalves = 20'000;
    for (int i = -c_iHalves; i <= c_iHalves; ++i)
    {
        const float fHalf = static_cast<float>(i) / 2.0F;
        for (const float fPosition : {fHalf, std::nextafter(fHalf, -c_fEnd), std::nextafter(fHalf, c_fEnd)})
        {
            ASSERT_EQ(RoundToPixel(fPosition), static_cast<int>(Dbl_Round(static_cast<double>(fPosition), 0)))
                << fPosition;
        }
    }
}
