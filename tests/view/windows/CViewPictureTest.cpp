#include "tests/view/windows/CViewPictureTest.h"

#include <cstdlib>

namespace
{

constexpr int c_iChannelTolerance = 1; // colours are converted through floats on their way to the screen

bool IsNear(COLORREF cr, COLORREF crOther)
{
    const auto isNear = [](int i, int iOther) { return std::abs(i - iOther) <= c_iChannelTolerance; };
    return isNear(GetRValue(cr), GetRValue(crOther)) && isNear(GetGValue(cr), GetGValue(crOther)) &&
           isNear(GetBValue(cr), GetBValue(crOther));
}

} // namespace

CViewPictureTest::~CViewPictureTest()
{
    m_pView.reset();
    DestroyWindow(m_hShow);
}

void CViewPictureTest::ShowDirect2D()
{
    constexpr int c_iLeft = 900;
    constexpr int c_iTop = 60;
    m_hShow = CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, L"STATIC", L"", WS_POPUP | WS_VISIBLE, c_iLeft, c_iTop,
                              300, 200, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    GetDirect2DSpy().hShow = m_hShow;
}

COLORREF CViewPictureTest::GetSpeedColour(std::int32_t i) const
{
    const int iClass = m_atoms[i].speed < 1.0F ? 0 : 1 + (m_atoms[i].speed > 1.0F ? 1 : 0);
    return GetClassColour(iClass);
}

COLORREF CViewPictureTest::GetClassColour(int iClass)
{
    const COLORREF crOther = iClass == 1 ? static_cast<COLORREF>(c_crMiddle) : static_cast<COLORREF>(c_crFast);
    return iClass == 0 ? static_cast<COLORREF>(c_crSlow) : crOther;
}

CExpectedScene CViewPictureTest::MakeScene(float fTolerance) const
{
    CExpectedScene scene;
    scene.size = GetClient();
    scene.rcWorld = m_pView->GetWorldRect();
    scene.crWorld = c_crWorld;
    scene.fTolerance = fTolerance;
    scene.colour = [this](std::int32_t i) { return GetSpeedColour(i); };
    // The parent's backdrop begins at the parent's corner, left of and above the view.
    scene.backdrop = [this](int x, int y) {
        const RECT rcView = GetClientAreaOnScreen(GetViewHandle());
        const RECT rcParent = GetClientAreaOnScreen(m_pParent->GetWindowHandle());
        const CPicture* const pBackdrop = m_pParent->GetBackdrop();
        return pBackdrop->GetPixelColour((rcView.left - rcParent.left + x) % pBackdrop->GetSize().cx,
                                         (rcView.top - rcParent.top + y) % pBackdrop->GetSize().cy);
    };
    return scene;
}

CViewPictureTest::CComparison CViewPictureTest::Compare(const CExpectedPicture& expected, const CPixels& picture)
{
    const auto isClassColour = [](COLORREF cr) {
        return cr == GetClassColour(0) || cr == GetClassColour(1) || cr == GetClassColour(2);
    };
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
            result.iInside += isClassColour(pixel.cr) ? 1 : 0;
            result.iWrong += IsNear(pixel.cr, picture.GetColour(x, y)) ? 0 : 1;
        }
    }
    return result;
}

void CViewPictureTest::ExpectScreen(const CExpectedScene& scene)
{
    constexpr int c_iFewestInside = 1000;
    const CExpectedPicture expected(scene, m_atoms);
    const CPixels picture = CaptureUntil(
        GetShown(), [this] { m_pView->OnEraseBackground(); },
        [&](const CPixels& pixels) { return Compare(expected, pixels).iWrong == 0; });
    ASSERT_EQ(scene.size, (CSize<int>{picture.iWidth, picture.iHeight}));
    const CComparison result = Compare(expected, picture);
    EXPECT_EQ(result.iWrong, 0);
    EXPECT_GT(result.iInside, c_iFewestInside);
    EXPECT_GT(result.iCompared, scene.size.cx * scene.size.cy / 2);
}
