#include "tests/view/windows/CViewTest.h"
#include "tests/view/windows/SpyFactory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{

constexpr HRESULT c_hrFailure = E_FAIL; // 0x80004005

class WorldViewSettings : public CViewTest
{
protected:
    void SetUp() override
    {
        Open({200, 150}, 300, 200);
        Scatter(4, 5);
        m_pParent->GetLog().clear();
        GetDirect2DSpy().bDrawEllipses = false;
    }

    bool LogIs(const wchar_t* sText) const { return m_pParent->GetLog() == sText; }

    // A frame on the render target counts as drawn by Direct2D.
    bool NextFrameUsesDirect2D()
    {
        const int iFrames = GetDirect2DSpy().iBeginDraw;
        m_pView->OnEraseBackground();
        return GetDirect2DSpy().iBeginDraw == iFrames + 1;
    }
};

} // namespace

TEST_F(WorldViewSettings, ASuccessfulStartCreatesFactoryTargetAndBrushesOnceAndDrawsAFrame)
{
    EXPECT_TRUE(Start_Speed());
    EXPECT_TRUE(LogIs(L""));
    EXPECT_EQ(GetDirect2DSpy().iFactories, 1);
    EXPECT_EQ(GetDirect2DSpy().iRenderTargets, 1);
    EXPECT_EQ(GetDirect2DSpy().iBeginDraw, 1);
    EXPECT_EQ(GetDirect2DSpy().iEndDraw, 1);
    EXPECT_EQ(GetDirect2DSpy().ellipses.size(), 4U);
    EXPECT_EQ(GetDirect2DSpy().iUnexpected, 0);
}

TEST_F(WorldViewSettings, TheNextStartKeepsFactoryAndTargetAndReplacesTheBrushes)
{
    ASSERT_TRUE(Start_Speed());
    const int iBrushes = GetDirect2DSpy().iSolidBrushes;
    GetDirect2DSpy().closed.clear();
    ASSERT_TRUE(Start_Speed());
    EXPECT_EQ(GetDirect2DSpy().iFactories, 1);
    EXPECT_EQ(GetDirect2DSpy().iRenderTargets, 1);
    EXPECT_EQ(GetDirect2DSpy().iSolidBrushes, iBrushes + 3);
    EXPECT_EQ(GetDirect2DSpy().closed, (std::vector<std::string>{"brush", "brush", "brush"}));
}

TEST_F(WorldViewSettings, FramesCreateNoBrushes)
{
    ASSERT_TRUE(Start_Speed());
    const int iBrushes = GetDirect2DSpy().iSolidBrushes;
    m_pView->OnEraseBackground();
    m_pView->OnEraseBackground();
    EXPECT_EQ(GetDirect2DSpy().iSolidBrushes, iBrushes);
}

TEST_F(WorldViewSettings, RefusedFactorsEndTheCallBeforeDirect2DAndDrawing)
{
    EXPECT_FALSE(Start_Fixed(L"10", L"20", L"30"));
    EXPECT_FALSE(Start_Fixed(L"10", L"", L""));
    EXPECT_FALSE(Start_Fixed(L"abc", L"", L"1"));
    EXPECT_EQ(GetDirect2DSpy().iFactories, 0);
    EXPECT_EQ(GetDirect2DSpy().iBeginDraw, 0);
    EXPECT_TRUE(LogIs(L""));
}

TEST_F(WorldViewSettings, AnUnknownColourModeIsRefused)
{
    CWString sFactor(L"1");
    CWString sEmpty;
    EXPECT_FALSE(m_pView->InitializeSettings(m_sizeWorld, false, static_cast<EnumAtomColourMode>(2), 0, sFactor, 0,
                                             sEmpty, 0, sFactor));
    m_pView->OnEraseBackground();
    EXPECT_TRUE(GetDirect2DSpy().ellipses.empty());
}

TEST_F(WorldViewSettings, ANewWorldSizeTakesEffectWithTheNextStart)
{
    m_sizeWorld = {100, 50};
    ASSERT_TRUE(Start_Speed());
    EXPECT_EQ(m_pView->GetWorldSize(), (CSize<int>{100, 50}));
    EXPECT_EQ(m_pView->GetWorldRect(), (CRect{100, 75, 200, 125}));
}

TEST_F(WorldViewSettings, AFailedFactoryIsLoggedAndTheViewDrawsWithoutDirect2D)
{
    GetDirect2DSpy().hrFactory = c_hrFailure;
    EXPECT_FALSE(Start_Speed());
    EXPECT_TRUE(LogIs(L"Error : D2D1CreateFactory() returned 0x80004005\n"));
    EXPECT_EQ(GetDirect2DSpy().iRenderTargets, 0);
    EXPECT_FALSE(NextFrameUsesDirect2D());
}

TEST_F(WorldViewSettings, ANullFactoryWithoutAnErrorIsAFailureToo)
{
    GetDirect2DSpy().bNullFactory = true;
    EXPECT_FALSE(Start_Speed());
    EXPECT_TRUE(LogIs(L"Error : D2D1CreateFactory() returned 0x0\n"));
}

TEST_F(WorldViewSettings, AFailedRenderTargetIsLoggedAndTheViewDrawsWithoutDirect2D)
{
    GetDirect2DSpy().hrRenderTarget = c_hrFailure;
    EXPECT_FALSE(Start_Speed());
    EXPECT_TRUE(LogIs(L"Error : CreateHwndRenderTarget() returned 0x80004005\n"));
    EXPECT_EQ(GetDirect2DSpy().iSolidBrushes, 0);
    EXPECT_FALSE(NextFrameUsesDirect2D());
}

TEST_F(WorldViewSettings, ANullRenderTargetWithoutAnErrorIsAFailureToo)
{
    GetDirect2DSpy().bNullRenderTarget = true;
    EXPECT_FALSE(Start_Speed());
    EXPECT_TRUE(LogIs(L"Error : CreateHwndRenderTarget() returned 0x0\n"));
}

TEST_F(WorldViewSettings, EachFailedBrushIsLoggedAndTheOthersAreStillCreated)
{
    GetDirect2DSpy().brushes = {c_hrFailure, S_OK, c_hrFailure};
    EXPECT_FALSE(Start_Speed());
    EXPECT_TRUE(LogIs(L"Error : CreateSolidColorBrush(m_pAtomColourSettings[0].cr) returned 0x80004005\n"
                      L"Error : CreateSolidColorBrush(m_pAtomColourSettings[2].cr) returned 0x80004005\n"));
    m_pParent->GetLog().clear();
    GetDirect2DSpy().brushes = {S_OK, c_hrFailure, S_OK};
    EXPECT_FALSE(Start_Speed());
    EXPECT_TRUE(LogIs(L"Error : CreateSolidColorBrush(m_pAtomColourSettings[1].cr) returned 0x80004005\n"));
}

TEST_F(WorldViewSettings, ANullBrushWithoutAnErrorIsAFailureToo)
{
    ASSERT_TRUE(Start_Speed());
    m_pParent->GetLog().clear();
    GetDirect2DSpy().bNullBrush = true;
    EXPECT_FALSE(Start_Speed());
    EXPECT_TRUE(LogIs(L"Error : CreateSolidColorBrush(m_pAtomColourSettings[0].cr) returned 0x0\n"
                      L"Error : CreateSolidColorBrush(m_pAtomColourSettings[1].cr) returned 0x0\n"
                      L"Error : CreateSolidColorBrush(m_pAtomColourSettings[2].cr) returned 0x0\n"));
}

TEST_F(WorldViewSettings, AClassWithoutABrushStaysInvisibleAndTheOthersAreDrawn)
{
    for (std::int32_t i = 0; i < m_atoms.GetCount(); ++i)
    {
        m_atoms[i].speed = i == 0 ? 0.5F : 1.0F;
    }
    GetDirect2DSpy().brushes = {c_hrFailure, S_OK, S_OK};
    EXPECT_FALSE(Start_Speed());
    EXPECT_EQ(GetDirect2DSpy().ellipses.size(), 3U);
}

TEST_F(WorldViewSettings, FailuresWithoutADebugLogOnlyReturnFalse)
{
    m_pView.reset();
    CPainterDirect2D painter(CreateSpyFactory);
    GetDirect2DSpy().hrFactory = c_hrFailure;
    EXPECT_FALSE(painter.Prepare(m_pParent->GetWindowHandle(), CColourSettings{}, nullptr));
}

TEST_F(WorldViewSettings, TheNextStartRecoversFromEveryFailure)
{
    GetDirect2DSpy().hrFactory = c_hrFailure;
    EXPECT_FALSE(Start_Speed());
    GetDirect2DSpy().hrFactory = S_OK;
    GetDirect2DSpy().hrRenderTarget = c_hrFailure;
    EXPECT_FALSE(Start_Speed());
    GetDirect2DSpy().hrRenderTarget = S_OK;
    GetDirect2DSpy().brushes = {c_hrFailure};
    EXPECT_FALSE(Start_Speed());
    EXPECT_TRUE(Start_Speed());
    EXPECT_TRUE(NextFrameUsesDirect2D());
}

TEST_F(WorldViewSettings, ABackdropThatCannotBeTiledDropsTheTargetWithinTheFrame)
{
    GetDirect2DSpy().hrBitmap = c_hrFailure;
    EXPECT_TRUE(Start_Speed()); // the brushes were created; only the frame failed
    EXPECT_EQ(GetDirect2DSpy().iBeginDraw, 1);
    EXPECT_EQ(GetDirect2DSpy().iEndDraw, 0);
    EXPECT_TRUE(GetDirect2DSpy().ellipses.empty());
    EXPECT_EQ(GetDirect2DSpy().closed, (std::vector<std::string>{"target"}));
    EXPECT_FALSE(NextFrameUsesDirect2D());
    EXPECT_FALSE(NextFrameUsesDirect2D());
}

TEST_F(WorldViewSettings, TheNextStartRecreatesADroppedTarget)
{
    GetDirect2DSpy().hrBitmap = c_hrFailure;
    Start_Speed();
    GetDirect2DSpy().hrBitmap = S_OK;
    EXPECT_FALSE(NextFrameUsesDirect2D());
    EXPECT_TRUE(Start_Speed());
    EXPECT_EQ(GetDirect2DSpy().iFactories, 1);
    EXPECT_EQ(GetDirect2DSpy().iRenderTargets, 2);
    EXPECT_TRUE(NextFrameUsesDirect2D());
}

TEST_F(WorldViewSettings, IfTheWorldCannotBeFilledTheFrameEndsWithoutAtoms)
{
    GetDirect2DSpy().brushes = {S_OK, S_OK, S_OK, c_hrFailure}; // the fourth brush fills the world
    EXPECT_TRUE(Start_Speed());
    EXPECT_EQ(GetDirect2DSpy().iEndDraw, 1);
    EXPECT_TRUE(GetDirect2DSpy().ellipses.empty());
    EXPECT_TRUE(NextFrameUsesDirect2D());
    EXPECT_EQ(GetDirect2DSpy().ellipses.size(), 4U);
}

// A driver update or a remote session removes the device. Nothing more appears on its target, so it is released with
// its last frame, and GDI draws until the next start.
TEST_F(WorldViewSettings, ATargetThatTheSystemHasRemovedIsDroppedAtOnceAndTheNextStartMakesAnother)
{
    ASSERT_TRUE(Start_Speed());
    GetDirect2DSpy().hrEndDraw = static_cast<HRESULT>(D2DERR_RECREATE_TARGET);
    GetDirect2DSpy().closed.clear();
    EXPECT_TRUE(NextFrameUsesDirect2D());
    EXPECT_EQ(std::count(GetDirect2DSpy().closed.begin(), GetDirect2DSpy().closed.end(), "target"), 1);
    EXPECT_FALSE(NextFrameUsesDirect2D());
    EXPECT_EQ(GetDirect2DSpy().iRenderTargets, 1);
    GetDirect2DSpy().hrEndDraw = S_OK;
    EXPECT_FALSE(NextFrameUsesDirect2D());
    EXPECT_TRUE(Start_Speed());
    EXPECT_EQ(GetDirect2DSpy().iRenderTargets, 2);
    EXPECT_EQ(GetDirect2DSpy().iFactories, 1);
    EXPECT_TRUE(NextFrameUsesDirect2D());
}

TEST_F(WorldViewSettings, OtherErrorsAtTheEndOfAFrameAreIgnored)
{
    ASSERT_TRUE(Start_Speed());
    GetDirect2DSpy().hrEndDraw = c_hrFailure;
    EXPECT_TRUE(NextFrameUsesDirect2D());
    EXPECT_TRUE(Start_Speed());
    EXPECT_EQ(GetDirect2DSpy().iRenderTargets, 1);
}

TEST_F(WorldViewSettings, GdiDrawsABackdropThatIsNotTiled)
{
    for (const EnumPicDrawMode eMode : {EnumPicDrawMode::Plain, EnumPicDrawMode::Fitted, EnumPicDrawMode::Stretched})
    {
        m_pView.reset();
        Open({200, 150}, 300, 200, eMode);
        EXPECT_TRUE(Start_Speed());
        EXPECT_EQ(GetDirect2DSpy().iBeginDraw, 0);
    }
}

// Uses the real system. On a machine without Direct2D, creating the factory fails and the view draws without it.
TEST_F(WorldViewSettings, TheSystemsOwnFactoryIsTheDefault)
{
    m_pView = std::make_unique<CWndWorldView>(m_pParent.get(), m_sizeWorld, m_atoms);
    EXPECT_TRUE(Start_Speed());
    EXPECT_EQ(GetDirect2DSpy().iFactories, 0);
}
