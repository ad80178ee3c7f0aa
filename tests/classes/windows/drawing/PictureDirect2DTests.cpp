#include "classes/windows/drawing/CPicture.h"
#include "classes/windows/system/Handles.h"
#include "tests/classes/windows/WindowsTestEnvironment.h"

#include <d2d1.h>

#include <gtest/gtest.h>

#include <vector>

namespace
{
constexpr int c_iTile = 4;
constexpr std::uint32_t c_uWhite = 0xFFFFFF;
constexpr std::uint32_t c_uRed = 0xFF0000;

// A white tile with a red pixel in its top left corner.
CPicture MakeMarkedTile()
{
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(c_iTile) * c_iTile, c_uWhite);
    pixels[0] = c_uRed;
    CPicture picture;
    picture.CreateFromPixels(c_iTile, c_iTile, pixels.data());
    return picture;
}

// A top-level window with a render target, because Direct2D's drawing in a child window cannot be read back from the
// screen on every system.
class PictureDirect2D : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_Main.Create(300, 200));
        WNDCLASSEXW record{};
        record.cbSize = sizeof(record);
        record.lpfnWndProc = DefWindowProcW;
        record.hInstance = GetModuleHandleW(nullptr);
        record.lpszClassName = L"PictureDirect2D";
        RegisterClassExW(&record);
        m_hWnd = CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, record.lpszClassName, L"", WS_POPUP | WS_VISIBLE,
                                 400, 60, c_iWidth, c_iHeight, nullptr, nullptr, record.hInstance, nullptr);
        ASSERT_NE(m_hWnd, nullptr);
        m_Main.Pump();
        ASSERT_TRUE(SUCCEEDED(D2D1CreateFactory(D2D1_FACTORY_TYPE_SINGLE_THREADED, __uuidof(ID2D1Factory), nullptr,
                                                reinterpret_cast<void**>(m_pFactory.Receive()))));
        m_pTarget = MakeTarget();
        ASSERT_TRUE(m_pTarget);
    }

    void TearDown() override { DestroyWindow(m_hWnd); }

    CComPtr<ID2D1HwndRenderTarget> MakeTarget()
    {
        const D2D1_RENDER_TARGET_PROPERTIES properties{};
        D2D1_HWND_RENDER_TARGET_PROPERTIES window{};
        window.hwnd = m_hWnd;
        window.pixelSize = {c_iWidth, c_iHeight};
        CComPtr<ID2D1HwndRenderTarget> pTarget;
        m_pFactory->CreateHwndRenderTarget(&properties, &window, pTarget.Receive());
        return pTarget;
    }

    // Draws blue and then the picture, repeatedly until the pixel has that colour on the screen. The first frames of a
    // new target may not reach the screen.
    bool DrawUntilShown(const CPicture& picture, int x, int y, COLORREF crExpected)
    {
        constexpr D2D1_COLOR_F c_blue{0.0F, 0.0F, 1.0F, 1.0F};
        const auto Show = [&] {
            m_pTarget->BeginDraw();
            m_pTarget->Clear(&c_blue);
            EXPECT_TRUE(picture.DrawTiled_Direct2D(m_pTarget.Get()));
            EXPECT_EQ(m_pTarget->EndDraw(nullptr, nullptr), S_OK);
            constexpr DWORD c_uOnItsWayMs = 50;
            Sleep(c_uOnItsWayMs);
            m_Shown = CopyFromScreen(m_hWnd);
            return m_Shown.GetPixelColour(x, y) == crExpected;
        };
        return PumpUntil(m_Main, Show);
    }

    static constexpr int c_iWidth = 60;
    static constexpr int c_iHeight = 40;
    CPicture m_Shown; // the latest capture of the screen
    CTestMainWindow m_Main;
    HWND m_hWnd = nullptr;
    CComPtr<ID2D1Factory> m_pFactory;
    CComPtr<ID2D1HwndRenderTarget> m_pTarget;
};
} // namespace

TEST_F(PictureDirect2D, TilesBeginAtTheTopLeftCornerOfTheDrawingRectangle)
{
    CPicture picture = MakeMarkedTile();
    const RECT rc{-3, -2, 30, 21};
    picture.SetDrawingRect(&rc);
    ASSERT_TRUE(DrawUntilShown(picture, c_iWidth - 1, c_iHeight - 1, RGB(0, 0, 255)));
    for (int y = 0; y < c_iHeight; ++y)
    {
        for (int x = 0; x < c_iWidth; ++x)
        {
            const bool bInside = x < rc.right && y < rc.bottom;
            const bool bMark = (x - rc.left) % c_iTile == 0 && (y - rc.top) % c_iTile == 0;
            const COLORREF crExpected = !bInside ? RGB(0, 0, 255) : bMark ? RGB(255, 0, 0) : RGB(255, 255, 255);
            ASSERT_EQ(m_Shown.GetPixelColour(x, y), crExpected) << x << ", " << y;
        }
    }
}

TEST_F(PictureDirect2D, ASolidPictureFillsItsRectangleAndCanChangeItsColour)
{
    CPicture picture;
    for (const COLORREF cr : {RGB(255, 0, 0), RGB(0, 255, 0)})
    {
        picture.CreatePictureFromColorref(nullptr, 9999, 9999, cr);
        EXPECT_TRUE(DrawUntilShown(picture, 5, 5, cr));
    }
}

// After a lost device the view creates another target on the same window, which must not use the brushes of the first.
TEST_F(PictureDirect2D, AnotherRenderTargetGetsItsOwnBrushes)
{
    CPicture picture = MakeMarkedTile();
    const RECT rc{0, 0, c_iWidth, c_iHeight};
    picture.SetDrawingRect(&rc);
    for (int i = 0; i < 3; ++i)
    {
        m_pTarget->BeginDraw();
        ASSERT_TRUE(picture.DrawTiled_Direct2D(m_pTarget.Get()));
        ASSERT_EQ(m_pTarget->EndDraw(nullptr, nullptr), S_OK);
        picture.ReleaseDirect2D();
        m_pTarget = MakeTarget();
        ASSERT_TRUE(m_pTarget);
    }
    picture.ReleaseDirect2D();
    picture.SetDrawingRect(nullptr);
    EXPECT_FALSE(picture.DrawTiled_Direct2D(m_pTarget.Get()));
}
