#include "tests/view/windows/CViewTest.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>

namespace
{

constexpr CSize<int> c_sizeLargeWorld{9999, 9999};
constexpr std::int32_t c_iManyAtoms = 100'000;
constexpr std::uint8_t c_uRadius = 4;

class WorldViewDrawing : public CViewTest
{
protected:
    // Counts the atoms whose circle reaches into the client area enlarged by the given number of pixels on each side.
    std::size_t CountReaching(float fGrowth) const
    {
        const CRect rcWorld = m_pView->GetWorldRect();
        const CSize<int> size = GetClient();
        std::size_t uCount = 0;
        for (std::int32_t i = 0; i < m_atoms.GetCount(); ++i)
        {
            const float fReach = static_cast<float>(m_atoms[i].radius) + fGrowth;
            const float fX = static_cast<float>(rcWorld.left) + m_atoms[i].x;
            const float fY = static_cast<float>(rcWorld.top) + m_atoms[i].y;
            const bool bReaches = fX + fReach > 0.0F && fX - fReach < static_cast<float>(size.cx) &&
                                  fY + fReach > 0.0F && fY - fReach < static_cast<float>(size.cy);
            uCount += bReaches ? 1U : 0U;
        }
        return uCount;
    }

    void DrawFrame()
    {
        GetDirect2DSpy().ellipses.clear();
        m_pView->OnEraseBackground();
    }
};

bool HasColour(const CSpyEllipse& drawn, unsigned long cr)
{
    constexpr float c_fFullByte = 255.0F;
    return drawn.colour.r == static_cast<float>(GetRValue(cr)) / c_fFullByte &&
           drawn.colour.g == static_cast<float>(GetGValue(cr)) / c_fFullByte &&
           drawn.colour.b == static_cast<float>(GetBValue(cr)) / c_fFullByte && drawn.colour.a == 1.0F;
}

} // namespace

TEST_F(WorldViewDrawing, Direct2DGetsOnlyAtomsThatReachIntoTheScrolledView)
{
    Open(c_sizeLargeWorld, 500, 400);
    Scatter(c_iManyAtoms, c_uRadius);
    GetDirect2DSpy().bDrawEllipses = false;
    ASSERT_TRUE(Start_Speed());
    for (const int iPosition : {0, 5000, 9999})
    {
        SetScrollPos(GetViewHandle(), SB_HORZ, iPosition, FALSE);
        SetScrollPos(GetViewHandle(), SB_VERT, iPosition / 2, FALSE);
        m_pView->SetControlPositions(-1, -1);
        DrawFrame();
        const std::size_t uDrawn = GetDirect2DSpy().ellipses.size();
        EXPECT_GE(uDrawn, CountReaching(0.0F));
        EXPECT_LE(uDrawn, CountReaching(3.0F));
        EXPECT_GT(uDrawn, 100U);
    }
}

TEST_F(WorldViewDrawing, Direct2DGetsOnlyAtomsThatReachIntoTheScrolledViewInFixedModeToo)
{
    Open(c_sizeLargeWorld, 500, 400);
    Scatter(c_iManyAtoms, c_uRadius);
    GetDirect2DSpy().bDrawEllipses = false;
    ASSERT_TRUE(Start_Fixed(L"30%", L"", L"10%"));
    DrawFrame();
    const std::size_t uDrawn = GetDirect2DSpy().ellipses.size();
    EXPECT_GE(uDrawn, CountReaching(0.0F));
    EXPECT_LE(uDrawn, CountReaching(3.0F));
    EXPECT_GT(uDrawn, 100U);
}

TEST_F(WorldViewDrawing, AtomsAreDrawnInArrayOrderAtTheirExactPositionsInTheColourOfTheirClass)
{
    Open({200, 150}, 300, 200);
    Scatter(40, c_uRadius);
    ASSERT_TRUE(Start_Speed());
    DrawFrame();
    const CRect rcWorld = m_pView->GetWorldRect();
    ASSERT_EQ(GetDirect2DSpy().ellipses.size(), 40U);
    for (std::int32_t i = 0; i < m_atoms.GetCount(); ++i)
    {
        const CSpyEllipse& drawn = GetDirect2DSpy().ellipses[static_cast<std::size_t>(i)];
        const CAtom& atom = m_atoms[i];
        EXPECT_EQ(drawn.ellipse.point.x, static_cast<float>(rcWorld.left) + atom.x);
        EXPECT_EQ(drawn.ellipse.point.y, static_cast<float>(rcWorld.top) + atom.y);
        EXPECT_EQ(drawn.ellipse.radiusX, 4.0F);
        EXPECT_EQ(drawn.ellipse.radiusY, 4.0F);
        const unsigned long crOther = atom.speed > 1.0F ? c_crFast : c_crMiddle;
        EXPECT_TRUE(HasColour(drawn, atom.speed < 1.0F ? c_crSlow : crOther)) << i;
    }
}

TEST_F(WorldViewDrawing, InFixedModeTheColourFollowsTheIndexInTheArray)
{
    Open({200, 150}, 300, 200);
    Scatter(200, c_uRadius);
    GetDirect2DSpy().bDrawEllipses = false;
    ASSERT_TRUE(Start_Fixed(L"10", L"", L"25%"));
    DrawFrame();
    ASSERT_EQ(GetDirect2DSpy().ellipses.size(), 200U);
    for (std::size_t u = 0; u < 200; ++u)
    {
        const unsigned long crOther = u < 150 ? c_crMiddle : c_crFast;
        EXPECT_TRUE(HasColour(GetDirect2DSpy().ellipses[u], u < 10 ? c_crSlow : crOther)) << u;
    }
}

// After a refused start the mode has changed but the factors still belong to the other mode. Frames are still drawn.
TEST_F(WorldViewDrawing, AfterARefusedStartEveryAtomIsStillDrawnOnce)
{
    Open({200, 150}, 300, 200);
    Scatter(40, c_uRadius);
    GetDirect2DSpy().bDrawEllipses = false;
    ASSERT_TRUE(Start_Speed());
    EXPECT_FALSE(Start_Fixed(L"1e300", L"abc", L"-1e300"));
    DrawFrame();
    EXPECT_EQ(GetDirect2DSpy().ellipses.size(), 40U);
}

TEST_F(WorldViewDrawing, WithoutAtomsBackdropAndWorldAreDrawn)
{
    Open({200, 150}, 300, 200);
    ASSERT_TRUE(Start_Speed());
    DrawFrame();
    EXPECT_TRUE(GetDirect2DSpy().ellipses.empty());
    EXPECT_LE(2, GetDirect2DSpy().iRectangles);
}

TEST_F(WorldViewDrawing, AViewThatWasMovedWithoutAMessageIsPlacedByItsNextFrame)
{
    Open({200, 150}, 300, 200);
    ASSERT_TRUE(Start_Speed());
    SetWindowPos(GetViewHandle(), nullptr, 0, 0, 500, 400, SWP_NOZORDER | SWP_NOSENDCHANGING | SWP_DEFERERASE);
    m_pView->OnEraseBackground();
    EXPECT_EQ(m_pView->GetWorldRect(), (CRect{150, 125, 350, 275}));
}

// Showing or hiding a bar makes the system erase the view before the world has its new place.
TEST_F(WorldViewDrawing, NoFrameShowsTheWorldAtItsOldPosition)
{
    Open({200, 150}, 300, 200);
    Scatter(1, c_uRadius);
    m_atoms[0].x = 100.0F;
    m_atoms[0].y = 75.0F;
    ASSERT_TRUE(Start_Speed());
    GetDirect2DSpy().ellipses.clear();
    MoveView(0, 0, 300, 120);
    const CSpyEllipse first = GetDirect2DSpy().ellipses.at(0);
    for (const CSpyEllipse& drawn : GetDirect2DSpy().ellipses)
    {
        EXPECT_EQ(drawn.ellipse.point.x, first.ellipse.point.x);
        EXPECT_EQ(drawn.ellipse.point.y, 75.0F);
    }
    GetDirect2DSpy().ellipses.clear();
    MoveView(0, 0, 300, 200);
    ASSERT_FALSE(GetDirect2DSpy().ellipses.empty());
    for (const CSpyEllipse& drawn : GetDirect2DSpy().ellipses)
    {
        EXPECT_EQ(drawn.ellipse.point.x, 150.0F);
        EXPECT_EQ(drawn.ellipse.point.y, 100.0F);
    }
}

// The simulation goes on while the main window is minimised. Its empty client area must not cost the view Direct2D.
TEST_F(WorldViewDrawing, AMinimisedParentDoesNotDropDirect2D)
{
    Open({200, 150}, 300, 200);
    Scatter(4, c_uRadius);
    ASSERT_TRUE(Start_Speed());
    ShowWindow(m_pParent->GetWindowHandle(), SW_MINIMIZE);
    SetWindowPos(m_pParent->GetWindowHandle(), nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOZORDER);
    Send(WM_ERASEBKGND);
    ShowWindow(m_pParent->GetWindowHandle(), SW_RESTORE);
    SetWindowPos(m_pParent->GetWindowHandle(), nullptr, 0, 0, CTestParent::c_iWidth, CTestParent::c_iHeight,
                 SWP_NOMOVE | SWP_NOZORDER);
    const int iFrames = GetDirect2DSpy().iBeginDraw;
    Send(WM_ERASEBKGND);
    EXPECT_EQ(GetDirect2DSpy().iBeginDraw, iFrames + 1);
    EXPECT_EQ(GetDirect2DSpy().iRenderTargets, 1);
}

// The smallest main window leaves no room for the view.
TEST_F(WorldViewDrawing, AViewWithoutAreaDrawsNothingAndRecoversWhenItGrows)
{
    Open({200, 150}, 0, 0);
    Scatter(4, c_uRadius);
    ASSERT_TRUE(Start_Speed());
    Send(WM_ERASEBKGND);
    EXPECT_EQ(GetDirect2DSpy().iBeginDraw, 0);
    MoveView(0, 0, 300, 200);
    EXPECT_EQ(GetDirect2DSpy().iRenderTargets, 1);
    DrawFrame();
    EXPECT_EQ(GetDirect2DSpy().ellipses.size(), 4U);
    MoveView(0, 0, 300, 0);
    const int iFrames = GetDirect2DSpy().iBeginDraw;
    Send(WM_ERASEBKGND);
    EXPECT_EQ(GetDirect2DSpy().iBeginDraw, iFrames);
    MoveView(0, 0, 300, 200);
    EXPECT_LT(iFrames, GetDirect2DSpy().iBeginDraw);
    EXPECT_EQ(GetDirect2DSpy().iRenderTargets, 1);
}

TEST_F(WorldViewDrawing, AWorldWithoutAreaDrawsNoAtoms)
{
    m_sizeWorld = {200, 150};
    Open({0, 0}, 300, 200);
    ASSERT_TRUE(Start_Speed());
    DrawFrame();
    EXPECT_TRUE(GetDirect2DSpy().ellipses.empty());
    EXPECT_EQ(m_pView->GetWorldRect().GetWidth(), 0);
}
