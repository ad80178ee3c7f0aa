#include "tests/view/windows/ScreenCapture.h"
#include "tests/windows/CRunningApplication.h"

#include <algorithm>
#include <gtest/gtest.h>

// Tests the pixels on the screen, as the user sees them, not a window's own bitmap.

namespace
{
bool Shows(const CPixels& picture, COLORREF crColour)
{
    const std::uint32_t uPixel =
        RGB(GetBValue(crColour), GetGValue(crColour), GetRValue(crColour)); // in pixels, red is the higher byte
    return std::find(picture.pixels.begin(), picture.pixels.end(), uPixel) != picture.pixels.end();
}
} // namespace

TEST(WorldOnScreen, ShowsSlowMediumAndFastAtomsInTheirColours)
{
    const CRunningApplication application;
    application.SetControlText(L"Width", L"200");
    application.SetControlText(L"Height", L"200");
    application.SetControlText(L"Tot_atoms", L"40");
    application.SetControlText(L"Min_radius", L"6");
    application.SetControlText(L"Max_radius", L"6");
    HWND hView = nullptr;
    application.Do([&](CKinetarium& inside) {
        CKinetariumProbe::Start(inside);
        hView = CKinetariumProbe::GetView(inside);
    });
    EXPECT_TRUE(CRunningApplication::Poll([&] {
        const CPixels picture = CaptureClientArea(hView);
        return Shows(picture, RGB(0, 0, 0)) && Shows(picture, RGB(255, 0, 0)) && Shows(picture, RGB(128, 128, 128)) &&
               Shows(picture, RGB(0, 255, 0));
    }));
}
