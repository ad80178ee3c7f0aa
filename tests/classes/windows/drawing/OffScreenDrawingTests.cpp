#include "classes/windows/drawing/OffScreenDrawing.h"

#include "classes/windows/drawing/CPictureBits.h"
#include "classes/windows/system/Handles.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace
{
constexpr int c_iWidth = 12;
constexpr int c_iHeight = 10;
constexpr RECT c_rc{3, 2, 9, 7};
constexpr COLORREF c_crGround = RGB(0, 0, 0);
constexpr COLORREF c_crDrawn = RGB(10, 200, 30);

// A black picture of 12 x 10 pixels that stands for a window.
class OffScreenDrawingTest : public testing::Test
{
protected:
    OffScreenDrawingTest() : m_pBits(CPictureBits::Create(c_iWidth, c_iHeight)), m_Target(nullptr)
    {
        m_hOld = SelectObject(m_Target.Get(), m_pBits->GetBitmap());
        PatBlt(m_Target.Get(), 0, 0, c_iWidth, c_iHeight, BLACKNESS);
    }
    ~OffScreenDrawingTest() override { SelectObject(m_Target.Get(), m_hOld); }

    static void FillEverything(HDC hDc)
    {
        const CBrushHandle brush(CreateSolidBrush(c_crDrawn));
        const RECT rc{0, 0, c_iWidth, c_iHeight};
        FillRect(hDc, &rc, brush.Get());
    }

    void ExpectColours(const RECT& rcDrawn) const
    {
        for (int y = 0; y < c_iHeight; ++y)
        {
            for (int x = 0; x < c_iWidth; ++x)
            {
                const bool bDrawn = x >= rcDrawn.left && x < rcDrawn.right && y >= rcDrawn.top && y < rcDrawn.bottom;
                EXPECT_EQ(GetPixel(m_Target.Get(), x, y), bDrawn ? c_crDrawn : c_crGround) << x << ", " << y;
            }
        }
    }

    std::unique_ptr<CPictureBits> m_pBits;
    CMemoryDc m_Target;
    HGDIOBJ m_hOld = nullptr;
};
} // namespace

TEST_F(OffScreenDrawingTest, OnlyTheRectangleIsCopied)
{
    EXPECT_TRUE(DrawOffScreen(m_Target.Get(), c_rc, FillEverything));
    ExpectColours(c_rc);
}

TEST_F(OffScreenDrawingTest, TheDrawingHasTheCoordinatesOfTheTarget)
{
    EXPECT_TRUE(DrawOffScreen(m_Target.Get(), c_rc, [](HDC hDc) { SetPixel(hDc, 4, 5, c_crDrawn); }));
    ExpectColours({4, 5, 5, 6});
}

TEST_F(OffScreenDrawingTest, NothingShowsBeforeTheDrawingIsComplete)
{
    EXPECT_TRUE(DrawOffScreen(m_Target.Get(), c_rc, [this](HDC hDc) {
        FillEverything(hDc);
        ExpectColours({});
    }));
}

TEST_F(OffScreenDrawingTest, ADrawingThatThrowsLeavesTheTargetAsItWas)
{
    const auto draw = [](HDC hDc) {
        FillEverything(hDc);
        throw std::runtime_error("thrown on purpose");
    };
    EXPECT_THROW(DrawOffScreen(m_Target.Get(), c_rc, draw), std::runtime_error);
    ExpectColours({});
}

TEST_F(OffScreenDrawingTest, WithoutATargetOrWithAnEmptyRectangleNothingIsDrawn)
{
    const auto draw = [](HDC) { ADD_FAILURE() << "drawn"; };
    EXPECT_FALSE(DrawOffScreen(nullptr, c_rc, draw));
    EXPECT_FALSE(DrawOffScreen(m_Target.Get(), {3, 2, 3, 7}, draw));
}

TEST_F(OffScreenDrawingTest, ARectangleTooLargeForTheMemoryIsDrawnDirectlyWhereThatIsAskedFor)
{
    constexpr RECT c_rcTooLarge{0, 0, 1000000, 1000000};
    EXPECT_FALSE(DrawOffScreen(m_Target.Get(), c_rcTooLarge, FillEverything));
    ExpectColours({});
    DrawOffScreenIfPossible(m_Target.Get(), c_rcTooLarge, FillEverything);
    ExpectColours({0, 0, c_iWidth, c_iHeight});
}
