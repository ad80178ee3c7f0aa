#include "view/VisibleAtoms.h"

#include "view/EllipseRect.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

namespace
{

constexpr CRect c_rcView{0, 0, 700, 600};

CAtom MakeAtom(float fX, float fY, std::uint8_t uRadius)
{
    CAtom atom;
    atom.x = fX;
    atom.y = fY;
    atom.radius = uRadius;
    return atom;
}

bool Overlaps(const CRect& rc, const CRect& rcOther)
{
    return !Intersect(rc, rcOther).IsEmpty();
}

// The smallest rectangle of whole pixels around the exact circle.
CRect GetAntiAliasedRect(const CAtom& atom, const CPoint<int>& ptWorld)
{
    const float fX = static_cast<float>(ptWorld.x) + atom.x;
    const float fY = static_cast<float>(ptWorld.y) + atom.y;
    const float fRadius = static_cast<float>(atom.radius);
    return CRect{static_cast<int>(std::floor(fX - fRadius)), static_cast<int>(std::floor(fY - fRadius)),
                 static_cast<int>(std::ceil(fX + fRadius)), static_cast<int>(std::ceil(fY + fRadius))};
}

} // namespace

TEST(VisibleAtoms, AnAtomInsideIsVisibleAndOneFarOutsideIsNot)
{
    const CVisibleArea area(c_rcView, {0, 0});
    EXPECT_TRUE(area.Shows(MakeAtom(350.0F, 300.0F, 5)));
    EXPECT_FALSE(area.Shows(MakeAtom(-20.0F, 300.0F, 5)));
    EXPECT_FALSE(area.Shows(MakeAtom(720.0F, 300.0F, 5)));
    EXPECT_FALSE(area.Shows(MakeAtom(350.0F, -20.0F, 5)));
    EXPECT_FALSE(area.Shows(MakeAtom(350.0F, 620.0F, 5)));
}

TEST(VisibleAtoms, AnAtomWithOnlyItsRimInsideIsVisible)
{
    const CVisibleArea area(c_rcView, {0, 0});
    EXPECT_TRUE(area.Shows(MakeAtom(-4.5F, 300.0F, 5)));
    EXPECT_TRUE(area.Shows(MakeAtom(704.5F, 300.0F, 5)));
    EXPECT_TRUE(area.Shows(MakeAtom(350.0F, -254.0F, 255)));
    EXPECT_TRUE(area.Shows(MakeAtom(350.0F, 854.0F, 255)));
}

// A painter may also colour the pixels around the exact circle, and it adds up positions in single precision.
TEST(VisibleAtoms, AnAtomThatEndsLessThanTwoPixelsOutsideIsVisible)
{
    const CVisibleArea area(c_rcView, {0, 0});
    EXPECT_TRUE(area.Shows(MakeAtom(-6.75F, 300.0F, 5)));
    EXPECT_TRUE(area.Shows(MakeAtom(706.75F, 300.0F, 5)));
    EXPECT_TRUE(area.Shows(MakeAtom(350.0F, -6.75F, 5)));
    EXPECT_TRUE(area.Shows(MakeAtom(350.0F, 606.75F, 5)));
}

TEST(VisibleAtoms, TheScrollPositionMovesTheWorldBehindTheView)
{
    const CVisibleArea area(c_rcView, {-9000, -8000});
    EXPECT_TRUE(area.Shows(MakeAtom(9350.0F, 8300.0F, 5)));
    EXPECT_FALSE(area.Shows(MakeAtom(350.0F, 300.0F, 5)));
}

TEST(VisibleAtoms, InAnEmptyViewNothingIsVisible)
{
    EXPECT_FALSE(CVisibleArea({0, 0, 0, 0}, {0, 0}).Shows(MakeAtom(0.0F, 0.0F, 255)));
    EXPECT_FALSE(CVisibleArea({0, 0, 700, 0}, {0, 0}).Shows(MakeAtom(350.0F, 0.0F, 255)));
    EXPECT_FALSE(CVisibleArea({0, 0, -5, 600}, {0, 0}).Shows(MakeAtom(0.0F, 300.0F, 255)));
}

TEST(VisibleAtoms, ANonFinitePositionIsNeverVisible)
{
    const CVisibleArea area(c_rcView, {0, 0});
    for (const float fBad : {std::nanf(""), std::numeric_limits<float>::infinity(),
                             -std::numeric_limits<float>::infinity(), std::numeric_limits<float>::max()})
    {
        EXPECT_FALSE(area.Shows(MakeAtom(fBad, 300.0F, 5)));
        EXPECT_FALSE(area.Shows(MakeAtom(350.0F, fBad, 5)));
    }
}

// Both painters may touch pixels slightly outside the exact circle, so every pixel that either of them can touch
// counts. An atom farther away than the margin and one pixel must be culled.
TEST(VisibleAtoms, EveryAtomThatEitherPainterCouldShowIsVisitedAndNoneFarAway)
{
    std::mt19937_64 random(11);
    const CPoint<int> ptWorld{-4321, -1234};
    const CVisibleArea area(c_rcView, ptWorld);
    std::uniform_real_distribution<float> nearLeft(4321.0F - 270.0F, 4321.0F + 270.0F);
    std::uniform_real_distribution<float> nearRight(4321.0F + 430.0F, 4321.0F + 970.0F);
    std::uniform_real_distribution<float> anywhere(0.0F, 3000.0F);
    constexpr float c_fFar = c_fDrawingMarginPixels + 1.0F;
    int iShown = 0;
    constexpr int c_iAtoms = 200'000;
    for (int i = 0; i < c_iAtoms; ++i)
    {
        const float fX = i % 2 == 0 ? nearLeft(random) : nearRight(random);
        const CAtom atom = MakeAtom(fX, anywhere(random), static_cast<std::uint8_t>(random() % 256U));
        const bool bTouched =
            Overlaps(GetEllipseRect(atom, ptWorld), c_rcView) || Overlaps(GetAntiAliasedRect(atom, ptWorld), c_rcView);
        const bool bShown = area.Shows(atom);
        ASSERT_TRUE(bShown || !bTouched) << atom.x << ' ' << atom.y << ' ' << int{atom.radius};
        const float fReach = static_cast<float>(atom.radius) + c_fFar;
        const bool bFar = atom.x + fReach < 4321.0F || atom.x - fReach > 5021.0F || atom.y + fReach < 1234.0F ||
                          atom.y - fReach > 1834.0F;
        ASSERT_FALSE(bShown && bFar) << atom.x << ' ' << atom.y << ' ' << int{atom.radius};
        iShown += bShown ? 1 : 0;
    }
    EXPECT_GT(iShown, c_iAtoms / 20);
    EXPECT_LT(iShown, c_iAtoms);
}

TEST(VisibleAtoms, AreVisitedInArrayOrderForAnyNumberOfBlocks)
{
    const CVisibleArea area(c_rcView, {0, 0});
    for (const std::int32_t count : {0, 1, 2, 511, 512, 513, 1024, 1500})
    {
        std::vector<CAtom> atoms;
        std::vector<const CAtom*> expected;
        atoms.reserve(static_cast<std::size_t>(count));
        for (std::int32_t i = 0; i < count; ++i)
        {
            atoms.push_back(MakeAtom(i % 3 == 0 ? 10.0F : 5000.0F, 10.0F, 3));
        }
        for (const CAtom& atom : atoms)
        {
            if (atom.x < 100.0F)
            {
                expected.push_back(&atom);
            }
        }
        std::vector<const CAtom*> drawn;
        ForEachVisibleAtom(atoms.data(), 0, count, area, [&](const CAtom& atom) { drawn.push_back(&atom); });
        EXPECT_EQ(drawn, expected) << count;
    }
}

TEST(VisibleAtoms, OnlyTheGivenRunIsVisited)
{
    const CVisibleArea area(c_rcView, {0, 0});
    const std::vector<CAtom> atoms(1000, MakeAtom(10.0F, 10.0F, 3));
    std::vector<const CAtom*> drawn;
    const auto collect = [&](const CAtom& atom) { drawn.push_back(&atom); };
    ForEachVisibleAtom(atoms.data(), 300, 900, area, collect);
    ASSERT_EQ(drawn.size(), 600U);
    EXPECT_EQ(drawn.front(), &atoms[300]);
    EXPECT_EQ(drawn.back(), &atoms[899]);
    ForEachVisibleAtom(atoms.data(), 900, 300, area, collect);
    EXPECT_EQ(drawn.size(), 600U);
}
