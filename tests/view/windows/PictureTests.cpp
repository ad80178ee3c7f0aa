#include "tests/view/windows/CViewTest.h"
#include "tests/view/windows/ScreenCapture.h"
#include "tests/view/windows/SoftwareDrawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>

namespace
{

// Pixels nearer to a circle's edge than this may be smoothed (Direct2D) or moved by the rounding of the enclosing
// rectangle (GDI, up to half a pixel in each direction): their colour is not compared.
constexpr float c_fEdgeDirect2D = 1.0F;
constexpr float c_fEdgeGdi = 1.5F;
constexpr int c_iChannelTolerance = 1; // a colour goes through floats on its way to the screen

class ViewPicture : public CViewTest
{
protected:
    ~ViewPicture() override
    {
        m_pView.reset();
        DestroyWindow(m_hShow);
    }

    // A window at the top of the desktop on which Direct2D's frames can be seen.
    void ShowDirect2D()
    {
        constexpr int c_iLeft = 900;
        constexpr int c_iTop = 60;
        m_hShow = CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, L"STATIC", L"", WS_POPUP | WS_VISIBLE, c_iLeft,
                                  c_iTop, 300, 200, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
        GetDirect2DSpy().hShow = m_hShow;
    }

    HWND GetShown() const { return m_hShow != nullptr ? m_hShow : GetViewHandle(); }

    COLORREF GetSpeedColour(std::int32_t i) const
    {
        const int iClass = m_atoms[i].speed < 1.0F ? 0 : 1 + (m_atoms[i].speed > 1.0F ? 1 : 0);
        return GetClassColour(iClass);
    }

    static COLORREF GetClassColour(int iClass)
    {
        const COLORREF crOther = iClass == 1 ? static_cast<COLORREF>(c_crMiddle) : static_cast<COLORREF>(c_crFast);
        return iClass == 0 ? static_cast<COLORREF>(c_crSlow) : crOther;
    }

    CExpectedScene MakeScene(float fTolerance) const
    {
        CExpectedScene scene;
        scene.size = GetClient();
        scene.rcWorld = m_pView->GetWorldRect();
        scene.crWorld = c_crWorld;
        scene.fTolerance = fTolerance;
        scene.colour = [this](std::int32_t i) { return GetSpeedColour(i); };
        // The parent's backdrop begins at its own corner, left of the view and above it.
        scene.backdrop = [this](int x, int y) {
            POINT pt{x, y};
            MapWindowPoints(GetViewHandle(), m_pParent->GetWindowHandle(), &pt, 1);
            const CPicture* const pBackdrop = m_pParent->GetBackdrop();
            return pBackdrop->GetPixelColour(pt.x % pBackdrop->GetSize().cx, pt.y % pBackdrop->GetSize().cy);
        };
        return scene;
    }

    struct CComparison
    {
        int iCompared{};
        int iInside{}; // compared pixels inside atoms
        int iWrong{};
    };

    static CComparison Compare(const CExpectedPicture& expected, const CPixels& picture)
    {
        CComparison result;
        for (int y = 0; y < picture.iHeight; ++y)
        {
            for (int x = 0; x < picture.iWidth; ++x)
            {
                const CExpectedPixel& pixel = expected.Get(x, y);
                if (pixel.bEdge)
                {
                    continue;
                }
                ++result.iCompared;
                result.iInside += IsClassColour(pixel.cr) ? 1 : 0;
                result.iWrong += IsNear(pixel.cr, picture.GetColour(x, y)) ? 0 : 1;
            }
        }
        return result;
    }

    // Compares the screen with the plain drawing.
    void ExpectScreen(const CExpectedScene& scene)
    {
        const CExpectedPicture expected(scene, m_atoms);
        const CPixels picture = CaptureUntil(
            GetShown(), [this] { m_pView->OnEraseBackground(); },
            [&](const CPixels& pixels) { return Compare(expected, pixels).iWrong == 0; });
        ASSERT_EQ(scene.size, (CSize<int>{picture.iWidth, picture.iHeight}));
        const CComparison result = Compare(expected, picture);
        EXPECT_EQ(0, result.iWrong);
        EXPECT_GT(result.iInside, 1000);
        EXPECT_GT(result.iCompared, scene.size.cx * scene.size.cy / 2);
    }

private:
    HWND m_hShow = nullptr;

    static bool IsClassColour(COLORREF cr)
    {
        return cr == GetClassColour(0) || cr == GetClassColour(1) || cr == GetClassColour(2);
    }

    static bool IsNear(COLORREF cr, COLORREF crOther)
    {
        const auto isNear = [](int i, int iOther) { return std::abs(i - iOther) <= c_iChannelTolerance; };
        return isNear(GetRValue(cr), GetRValue(crOther)) && isNear(GetGValue(cr), GetGValue(crOther)) &&
               isNear(GetBValue(cr), GetBValue(crOther));
    }
};

constexpr std::int32_t c_iAtoms = 60;
constexpr std::uint8_t c_uRadius = 12;

} // namespace

TEST_F(ViewPicture, Direct2DShowsACentredWorldAsThePlainDrawingDoes)
{
    ShowDirect2D();
    Open({260, 160}, 300, 200);
    Scatter(c_iAtoms, c_uRadius);
    ASSERT_TRUE(Start_Speed());
    ExpectScreen(MakeScene(c_fEdgeDirect2D));
    EXPECT_EQ(0, GetDirect2DSpy().iUnexpected);
}

TEST_F(ViewPicture, GdiShowsACentredWorldAsThePlainDrawingDoes)
{
    GetDirect2DSpy().hrFactory = E_FAIL;
    Open({260, 160}, 300, 200);
    Scatter(c_iAtoms, c_uRadius);
    EXPECT_FALSE(Start_Speed());
    ExpectScreen(MakeScene(c_fEdgeGdi));
}

TEST_F(ViewPicture, Direct2DShowsAScrolledWorldAsThePlainDrawingDoes)
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
    ASSERT_EQ(-90, m_pView->GetWorldRect().left);
    ASSERT_EQ(-150, m_pView->GetWorldRect().top);
    ExpectScreen(MakeScene(c_fEdgeDirect2D));
}

TEST_F(ViewPicture, GdiShowsAScrolledWorldAsThePlainDrawingDoes)
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

// Three large atoms side by side, each lying over half of the one before.
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

TEST_F(ViewPicture, Direct2DLaysLaterAtomsOverEarlierOnes)
{
    ShowDirect2D();
    Open({260, 160}, 300, 200);
    Scatter(3, 40);
    StackAtoms(m_atoms);
    ASSERT_TRUE(Start_Speed());
    ExpectScreen(MakeScene(c_fEdgeDirect2D));
}

TEST_F(ViewPicture, GdiLaysLaterAtomsOverEarlierOnes)
{
    GetDirect2DSpy().hrFactory = E_FAIL;
    Open({260, 160}, 300, 200);
    Scatter(3, 40);
    StackAtoms(m_atoms);
    EXPECT_FALSE(Start_Speed());
    ExpectScreen(MakeScene(c_fEdgeGdi));
}

TEST_F(ViewPicture, ANewBackgroundColourShowsAtOnce)
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

// Direct2D is asked for every atom, seen or not, in frames of this test's own on the very same target.
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

    // Something else first, so that the culled frame cannot be taken for the one without culling.
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
    ASSERT_EQ(c_crWhite, white.GetColour(0, 0));

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
    EXPECT_EQ(culled, CaptureUntil(GetShown(), drawAll, [&](const CPixels& pixels) { return pixels == culled; }));
}
