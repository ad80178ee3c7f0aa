#include "tests/view/windows/CViewPictureTest.h"

#include <algorithm>
#include <cstddef>

namespace
{

using ViewPicture = CViewPictureTest;

constexpr std::int32_t c_iAtoms = 60;
constexpr std::uint8_t c_uRadius = 12;

} // namespace

TEST_F(ViewPicture, Direct2DShowsACentredWorldLikeThePlainDrawing)
{
    ShowDirect2D();
    Open({260, 160}, 300, 200);
    Scatter(c_iAtoms, c_uRadius);
    ASSERT_TRUE(Start_Speed());
    ExpectScreen(MakeScene(c_fEdgeDirect2D));
    EXPECT_EQ(GetDirect2DSpy().iUnexpected, 0);
}

TEST_F(ViewPicture, GdiShowsACentredWorldLikeThePlainDrawing)
{
    GetDirect2DSpy().hrFactory = E_FAIL;
    Open({260, 160}, 300, 200);
    Scatter(c_iAtoms, c_uRadius);
    EXPECT_FALSE(Start_Speed());
    ExpectScreen(MakeScene(c_fEdgeGdi));
}

TEST_F(ViewPicture, Direct2DShowsAScrolledWorldLikeThePlainDrawing)
{
    ShowDirect2D();
    Open({700, 500}, 300, 200);
    Scatter(4 * c_iAtoms, c_uRadius);
    ASSERT_TRUE(Start_Speed());
    for (int i = 0; i < 9; ++i)
    {
        Send(WM_HSCROLL, MAKEWPARAM(SB_LINEDOWN, 0));
        Send(WM_VSCROLL, MAKEWPARAM(SB_LINEDOWN, 0));
    }
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)));
    ASSERT_EQ(m_pView->GetWorldRect().left, -90);
    ASSERT_EQ(m_pView->GetWorldRect().top, -150);
    ExpectScreen(MakeScene(c_fEdgeDirect2D));
}

TEST_F(ViewPicture, GdiShowsAScrolledWorldLikeThePlainDrawing)
{
    GetDirect2DSpy().hrFactory = E_FAIL;
    Open({700, 500}, 300, 200);
    Scatter(4 * c_iAtoms, c_uRadius);
    EXPECT_FALSE(Start_Speed());
    Send(WM_HSCROLL, MAKEWPARAM(SB_PAGEDOWN, 0));
    Send(WM_VSCROLL, MAKEWPARAM(SB_PAGEDOWN, 0));
    ASSERT_LT(m_pView->GetWorldRect().left, -100);
    ASSERT_LT(m_pView->GetWorldRect().top, -100);
    ExpectScreen(MakeScene(c_fEdgeGdi));
}

TEST_F(ViewPicture, Direct2DShowsTheRunsOfFixedMode)
{
    ShowDirect2D();
    Open({260, 160}, 300, 200);
    Scatter(c_iAtoms, c_uRadius);
    ASSERT_TRUE(Start_Fixed(L"20", L"", L"50%"));
    CExpectedScene scene = MakeScene(c_fEdgeDirect2D);
    scene.colour = [](std::int32_t i) { return GetClassColour(i < 20 ? 0 : 1 + (i < 30 ? 0 : 1)); };
    ExpectScreen(scene);
}

namespace
{

// Three large atoms in a row; each covers half of the previous one.
void StackAtoms(CAtoms& atoms)
{
    for (std::int32_t i = 0; i < atoms.GetCount(); ++i)
    {
        atoms[i].x = 80.0F + 20.0F * static_cast<float>(i);
        atoms[i].y = 80.0F;
        atoms[i].speed = 1.5F - 0.5F * static_cast<float>(i);
    }
}

} // namespace

TEST_F(ViewPicture, Direct2DDrawsLaterAtomsOverEarlierOnes)
{
    ShowDirect2D();
    Open({260, 160}, 300, 200);
    Scatter(3, 40);
    StackAtoms(m_atoms);
    ASSERT_TRUE(Start_Speed());
    ExpectScreen(MakeScene(c_fEdgeDirect2D));
}

TEST_F(ViewPicture, GdiDrawsLaterAtomsOverEarlierOnes)
{
    GetDirect2DSpy().hrFactory = E_FAIL;
    Open({260, 160}, 300, 200);
    Scatter(3, 40);
    StackAtoms(m_atoms);
    EXPECT_FALSE(Start_Speed());
    ExpectScreen(MakeScene(c_fEdgeGdi));
}

TEST_F(ViewPicture, ANewBackgroundColourIsShownAtOnce)
{
    ShowDirect2D();
    Open({260, 160}, 300, 200);
    Scatter(c_iAtoms, c_uRadius);
    ASSERT_TRUE(Start_Speed());
    constexpr COLORREF c_crNew = 0x00D0FF;
    m_pView->SetWorldBackgroundColour(c_crNew);
    CExpectedScene scene = MakeScene(c_fEdgeDirect2D);
    scene.crWorld = c_crNew;
    ExpectScreen(scene);
}

namespace
{

CComPtr<ID2D1SolidColorBrush> MakeBrush(ID2D1HwndRenderTarget* pTarget, COLORREF cr)
{
    constexpr float c_fFullByte = 255.0F;
    const D2D1_COLOR_F colour{static_cast<float>(GetRValue(cr)) / c_fFullByte,
                              static_cast<float>(GetGValue(cr)) / c_fFullByte,
                              static_cast<float>(GetBValue(cr)) / c_fFullByte, 1.0F};
    CComPtr<ID2D1SolidColorBrush> pBrush;
    pTarget->CreateSolidColorBrush(&colour, nullptr, pBrush.Receive());
    return pBrush;
}

} // namespace

// The test draws its own frames with every atom, visible or not, on the same target.
TEST_F(ViewPicture, Direct2DShowsTheSameWithoutCulling)
{
    ShowDirect2D();
    Open({700, 500}, 300, 200);
    Scatter(4 * c_iAtoms, c_uRadius);
    ASSERT_TRUE(Start_Speed());
    Send(WM_HSCROLL, MAKEWPARAM(SB_PAGEDOWN, 0));
    Send(WM_VSCROLL, MAKEWPARAM(SB_PAGEDOWN, 0));
    GetDirect2DSpy().ellipses.clear();
    m_pView->OnEraseBackground();
    EXPECT_LT(GetDirect2DSpy().ellipses.size(), static_cast<std::size_t>(m_atoms.GetCount() / 2));
    const CExpectedPicture expected(MakeScene(c_fEdgeDirect2D), m_atoms);
    const CPixels culled = CaptureUntil(
        GetShown(), [this] { m_pView->OnEraseBackground(); },
        [&](const CPixels& pixels) { return Compare(expected, pixels).iWrong == 0; });

    // Draws white first, so that the culled frame cannot be mistaken for the frame without culling.
    ID2D1HwndRenderTarget* const pTarget = GetDirect2DSpy().pRealTarget;
    const CSize<int> size = GetClient();
    const D2D1_RECT_F rcAll{0.0F, 0.0F, static_cast<float>(size.cx), static_cast<float>(size.cy)};
    constexpr COLORREF c_crWhite = 0xFFFFFF;
    const CPixels white = CaptureUntil(
        GetShown(),
        [&] {
            pTarget->BeginDraw();
            pTarget->FillRectangle(&rcAll, MakeBrush(pTarget, c_crWhite).Get());
            pTarget->EndDraw();
        },
        [](const CPixels& pixels) { return pixels.GetColour(0, 0) == c_crWhite; });
    ASSERT_EQ(white.GetColour(0, 0), c_crWhite);

    const CRect rcWorld = m_pView->GetWorldRect();
    const auto drawAll = [&] {
        pTarget->BeginDraw();
        pTarget->FillRectangle(&rcAll, MakeBrush(pTarget, c_crWorld).Get());
        for (std::int32_t i = 0; i < m_atoms.GetCount(); ++i)
        {
            const float fRadius = static_cast<float>(m_atoms[i].radius);
            const D2D1_ELLIPSE ellipse{
                {static_cast<float>(rcWorld.left) + m_atoms[i].x, static_cast<float>(rcWorld.top) + m_atoms[i].y},
                fRadius,
                fRadius};
            pTarget->FillEllipse(&ellipse, MakeBrush(pTarget, GetSpeedColour(i)).Get());
        }
        pTarget->EndDraw();
    };
    EXPECT_EQ(CaptureUntil(GetShown(), drawAll, [&](const CPixels& pixels) { return pixels == culled; }), culled);
}
