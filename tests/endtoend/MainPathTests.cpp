#include "tests/endtoend/CEndToEndTest.h"
#include "tests/endtoend/CScreenPicture.h"
#include "tests/endtoend/UserInput.h"
#include "tests/endtoend/WaitUntil.h"

#include <chrono>

namespace
{
constexpr auto c_patience = std::chrono::milliseconds(20000);
constexpr COLORREF c_crBlack = RGB(0, 0, 0);

// The number of the world's pixels of each kind of colour.
struct CColourCounts
{
    int black = 0, red = 0, grey = 0, green = 0;
};

// Edges are anti-aliased, so the kinds are hues: grey has three nearly equal channels.
CColourCounts CountColours(const CScreenPicture& picture)
{
    constexpr int c_iNear = 24; // levels
    CColourCounts counts;
    for (int iY = 0; iY < picture.GetHeight(); ++iY)
    {
        for (int iX = 0; iX < picture.GetWidth(); ++iX)
        {
            const COLORREF cr = picture.GetPixel(iX, iY);
            const int iRed = GetRValue(cr);
            const int iGreen = GetGValue(cr);
            const int iBlue = GetBValue(cr);
            counts.black += cr == c_crBlack ? 1 : 0;
            counts.red += iRed > iGreen + c_iNear && iRed > iBlue + c_iNear ? 1 : 0;
            counts.green += iGreen > iRed + c_iNear && iGreen > iBlue + c_iNear ? 1 : 0;
            counts.grey += iRed > c_iNear && iRed == iGreen && iGreen == iBlue ? 1 : 0;
        }
    }
    return counts;
}

using EndToEnd = CEndToEndTest;
} // namespace

TEST_F(EndToEnd, StartShowsStatisticsLinesStopEndsTheRunAndClosingEndsTheProgram)
{
    m_user.PressStart();
    const CStatistics first = m_user.WaitForStatistics(0);
    const CStatistics second = m_user.WaitForStatistics(first.iterations);
    EXPECT_GT(second.iterations, first.iterations);
    EXPECT_GT(second.millisecondsPerPass, 0.0);
    EXPECT_GT(second.framesPerSecond, 0.0);
    m_user.PressStop();
    ExpectCleanClose();
}

TEST_F(EndToEnd, EveryStartResetsTheCountOfIterations)
{
    m_user.PressStart();
    CStatistics last;
    for (int i = 0; i < 3; ++i)
    {
        last = m_user.WaitForStatistics(last.iterations);
    }
    m_user.PressStop();
    m_user.PressStart();
    EXPECT_LT(m_user.WaitForStatistics(last.iterations).iterations, last.iterations);
    ExpectCleanClose();
}

TEST_F(EndToEnd, TheWorldShowsRedGreyAndGreenAtomsOnBlack)
{
    m_user.PressStart();
    m_user.RestMouse();
    m_user.WaitForStatistics(0);
    const CScreenPicture world(m_user.GetWorldRectangle());
    const CColourCounts counts = CountColours(world);
    // 256 atoms of radius 3 to 5 cover about 13,000 of the world's 262,144 pixels; a speed class can be small.
    constexpr int c_iFewest = 200;
    EXPECT_GT(counts.black, world.GetWidth() * world.GetHeight() / 2);
    EXPECT_GT(counts.red, c_iFewest);
    EXPECT_GT(counts.grey, c_iFewest);
    EXPECT_GT(counts.green, c_iFewest);
    ExpectCleanClose();
}

TEST_F(EndToEnd, AClickInTheWorldRestartsItFromThatPoint)
{
    m_user.PressStart();
    m_user.WaitForStatistics(0);
    const POINT click = {100, 120};
    // Shortly after the click all atoms are near it, so the far half of the world is empty.
    WaitUntil("the atoms to burst from the click", c_patience, [&] {
        m_user.ClickWorld(click);
        for (int iPicture = 0; iPicture < 20; ++iPicture)
        {
            RECT rcFarHalf = m_user.GetWorldRectangle();
            rcFarHalf.left = (rcFarHalf.left + rcFarHalf.right) / 2;
            const CScreenPicture farHalf(rcFarHalf);
            RECT rcNear = m_user.GetWorldRectangle();
            constexpr int c_iReach = 60; // pixels
            rcNear = {rcNear.left + click.x - c_iReach, rcNear.top + click.y - c_iReach,
                      rcNear.left + click.x + c_iReach, rcNear.top + click.y + c_iReach};
            const CColourCounts close = CountColours(CScreenPicture(rcNear));
            if (CountColours(farHalf).black == farHalf.GetWidth() * farHalf.GetHeight() &&
                close.red + close.grey + close.green > 0)
            {
                return true;
            }
        }
        return false;
    });
    m_user.WaitForStatistics(0);
    ExpectCleanClose();
}

TEST_F(EndToEnd, ClosingWhileTheSimulationRunsEndsTheProgram)
{
    m_user.PressStart();
    ExpectCleanClose();
}

TEST_F(EndToEnd, ClosingWithoutAStartEndsTheProgram)
{
    ExpectCleanClose();
}

TEST_F(EndToEnd, TheControlsAreThoseOfVersion6)
{
    EXPECT_TRUE(m_program.HasModuleFrom(L"comctl32.dll", L"winsxs"));
    ExpectCleanClose();
}

TEST_F(EndToEnd, F11ShowsOnlyTheWorldOnTheWholeScreenAndF11AgainRestoresTheWindow)
{
    const RECT rcBefore = m_user.GetWindowRectangle();
    m_user.PressStart();
    m_user.RestMouse();
    m_user.PressKeyInWindow(VK_F11);
    const RECT rcScreen = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    WaitUntil("the window to cover the screen", c_patience, [&] {
        const RECT rc = m_user.GetWorldRectangle();
        return EqualRect(&rc, &rcScreen) != FALSE && IsWindowVisible(m_user.GetStatusBar()) == FALSE;
    });
    m_user.PressKeyInWindow(VK_F11);
    WaitUntil("the window to be as before", c_patience, [&] {
        const RECT rc = m_user.GetWindowRectangle();
        return EqualRect(&rc, &rcBefore) != FALSE && IsWindowVisible(m_user.GetStatusBar()) != FALSE;
    });
    ExpectCleanClose();
}
