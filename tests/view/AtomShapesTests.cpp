#include "classes/core/CSize.h"
#include "tests/view/CFakeEllipses.h"
#include "view/CAtomShapes.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

namespace
{

using CQuestion = CFakeEllipses::CPixelQuestion;

// Whether the shapes of a system with such pixels can be used.
bool IsUsable(CFakeEllipses::Answer answer)
{
    CFakeEllipses ellipses(std::move(answer));
    return CAtomShapes::Learn(ellipses).has_value();
}

// The same for a system that leaves some pixels out.
bool IsUsableWithout(const std::function<bool(const CQuestion&)>& isLeftOut)
{
    return IsUsable([&](const CQuestion& question) {
        return isLeftOut(question) ? question.crBackground : CFakeEllipses::DrawRegular(question);
    });
}

class CSystemWithoutPicture final : public IEllipseSource
{
public:
    std::span<const Pixel> Draw(const CRect&, ColourRef, ColourRef) override { return {}; }
};

// A system that draws that many ellipses and then none.
class CSystemThatFailsLate final : public IEllipseSource
{
public:
    explicit CSystemThatFailsLate(int iGood) : m_iGood(iGood), m_Regular(CFakeEllipses::DrawRegular) {}

    std::span<const Pixel> Draw(const CRect& rc, ColourRef cr, ColourRef crBackground) override
    {
        if (m_Regular.GetDrawn() == m_iGood)
        {
            return {};
        }
        return m_Regular.Draw(rc, cr, crBackground);
    }

private:
    int m_iGood;
    CFakeEllipses m_Regular;
};

} // namespace

TEST(AtomShapes, EveryAtomOfALegalRadiusHasAShapeWithThePixelsOfTheSystem)
{
    CFakeEllipses ellipses(CFakeEllipses::DrawRegular);
    const std::optional<CAtomShapes> shapes = CAtomShapes::Learn(ellipses);
    ASSERT_TRUE(shapes.has_value());
    for (int iRadius = 1; iRadius <= 32; ++iRadius)
    {
        for (int i = 0; i < 4; ++i)
        {
            const CRect rc{0, 0, 2 * iRadius + i % 2, 2 * iRadius + i / 2};
            const CAtomShape* const pShape = shapes->Find(rc.GetWidth(), rc.GetHeight());
            ASSERT_NE(pShape, nullptr) << rc.right << " x " << rc.bottom;
            EXPECT_EQ(pShape->width, rc.right);
            EXPECT_EQ(pShape->height, rc.bottom);
            for (int y = 0; y < rc.bottom; ++y)
            {
                const CAtomShape::CRun run = pShape->runs[static_cast<std::size_t>(y)];
                for (int x = 0; x < rc.right; ++x)
                {
                    ASSERT_EQ(run.begin <= x && x < run.end, CFakeEllipses::IsInside(rc, x, y))
                        << rc.right << " x " << rc.bottom << " at " << x << ' ' << y;
                }
            }
        }
    }
}

TEST(AtomShapes, ARectangleOfNoLegalAtomHasNone)
{
    CFakeEllipses ellipses(CFakeEllipses::DrawRegular);
    const std::optional<CAtomShapes> shapes = CAtomShapes::Learn(ellipses);
    ASSERT_TRUE(shapes.has_value());
    for (const CSize<int> size : {CSize<int>{0, 0},
                                  {1, 1},
                                  {1, 2},
                                  {2, 1},
                                  {2, 4},
                                  {5, 6},
                                  {6, 5},
                                  {64, 66},
                                  {66, 66},
                                  {80, 80},
                                  {-2, -2},
                                  {-6, 6},
                                  {6, -6},
                                  {2'000'000'000, 2'000'000'000}})
    {
        EXPECT_EQ(shapes->Find(size.cx, size.cy), nullptr) << size.cx << " x " << size.cy;
    }
}

// Its rows are empty, as the system's are.
TEST(AtomShapes, AShapeWithoutPixelsIsAShape)
{
    CFakeEllipses ellipses([](const CQuestion& question) {
        return question.rc.GetWidth() == 2 ? question.crBackground : CFakeEllipses::DrawRegular(question);
    });
    const std::optional<CAtomShapes> shapes = CAtomShapes::Learn(ellipses);
    ASSERT_TRUE(shapes.has_value());
    EXPECT_EQ(shapes->Find(2, 2)->runs[0].end, 0);
    EXPECT_EQ(shapes->Find(2, 2)->height, 2);
}

TEST(AtomShapes, ASystemWhoseShapesDependOnThePositionHasNone)
{
    const auto isTopRow = [](const CQuestion& q) { return q.y == q.rc.top; };
    EXPECT_FALSE(IsUsableWithout([&](const CQuestion& q) { return q.rc.left % 2 == 0 && isTopRow(q); }));
    EXPECT_FALSE(IsUsableWithout([&](const CQuestion& q) { return q.rc.top % 2 == 0 && isTopRow(q); }));
    EXPECT_TRUE(IsUsableWithout(isTopRow));
}

TEST(AtomShapes, ASystemThatDrawsOtherPixelsAcrossAnEdgeHasNone)
{
    EXPECT_FALSE(IsUsableWithout([](const CQuestion& q) { return q.rc.left < 0 && q.x == 0; }));
    EXPECT_FALSE(IsUsableWithout([](const CQuestion& q) { return q.rc.top < 0 && q.y == 0; }));
    constexpr int c_iEnd = IEllipseSource::c_iSide;
    EXPECT_FALSE(IsUsableWithout([](const CQuestion& q) { return q.rc.right > c_iEnd && q.x == c_iEnd - 1; }));
    EXPECT_FALSE(IsUsableWithout([](const CQuestion& q) { return q.rc.bottom > c_iEnd && q.y == c_iEnd - 1; }));
}

// Only one of the 128 shapes is irregular.
TEST(AtomShapes, OneIrregularShapeIsEnoughToUseNone)
{
    for (const CSize<int> sizeBad : {CSize<int>{2, 2}, {7, 6}, {6, 7}, {65, 65}})
    {
        EXPECT_FALSE(IsUsableWithout([&](const CQuestion& q) {
            return q.rc.GetWidth() == sizeBad.cx && q.rc.GetHeight() == sizeBad.cy && q.rc.left % 2 == 0 &&
                   q.y == q.rc.top + q.rc.GetHeight() / 2;
        })) << sizeBad.cx
            << " x " << sizeBad.cy;
    }
}

TEST(AtomShapes, ARowOfSeveralRunsHasNoShape)
{
    EXPECT_FALSE(IsUsableWithout(
        [](const CQuestion& q) { return q.rc.GetWidth() == 9 && q.x == q.rc.left + 4 && q.y == q.rc.top + 4; }));
}

// The outline is the pen's, the inside the brush's.
TEST(AtomShapes, ASystemWhosePenAndBrushDifferHasNone)
{
    const auto isRim = [](const CQuestion& q) {
        return CFakeEllipses::IsInside(q.rc, q.x, q.y) && !CFakeEllipses::IsInside(q.rc, q.x - 1, q.y);
    };
    // The pen rounds its colour.
    EXPECT_FALSE(IsUsable([&](const CQuestion& q) {
        constexpr ColourRef c_crCoarse = 0xF8F8F8;
        return isRim(q) ? q.cr & c_crCoarse : CFakeEllipses::DrawRegular(q);
    }));
    // The brush mixes in a little of the background.
    EXPECT_FALSE(IsUsable([&](const CQuestion& q) {
        constexpr ColourRef c_crLow = 0x010101;
        const ColourRef cr = CFakeEllipses::DrawRegular(q);
        return cr == q.cr && !isRim(q) ? cr ^ (q.crBackground & c_crLow) : cr;
    }));
    // The pen covers less in black.
    EXPECT_FALSE(IsUsableWithout([&](const CQuestion& q) { return q.cr == 0 && isRim(q); }));
}

TEST(AtomShapes, APixelOutsideTheRectangleLeavesNoShape)
{
    const auto draw = [](int iOutside) {
        return [iOutside](const CQuestion& q) {
            const bool bOutside = q.x == q.rc.right - 1 + iOutside && q.y == q.rc.top + q.rc.GetHeight() / 2;
            return bOutside ? q.cr : CFakeEllipses::DrawRegular(q);
        };
    };
    EXPECT_FALSE(IsUsable(draw(1)));
    EXPECT_FALSE(IsUsable(draw(-1 - 2 * 32)));
    EXPECT_TRUE(IsUsable(draw(0)));
}

TEST(AtomShapes, WithoutAPictureOfTheSystemThereAreNone)
{
    CSystemWithoutPicture without;
    EXPECT_FALSE(CAtomShapes::Learn(without).has_value());
    CFakeEllipses regular(CFakeEllipses::DrawRegular);
    ASSERT_TRUE(CAtomShapes::Learn(regular).has_value());
    constexpr int c_iDrawnPerShape = 6;
    ASSERT_EQ(regular.GetDrawn(), 128 * c_iDrawnPerShape);
    for (int i = 0; i < c_iDrawnPerShape; ++i)
    {
        for (const int iGood : {i, regular.GetDrawn() - 1 - i})
        {
            CSystemThatFailsLate late(iGood);
            ASSERT_FALSE(CAtomShapes::Learn(late).has_value()) << iGood;
        }
    }
}
