#include "classes/windows/Handles.h"
#include "tests/windows/CRunningApplication.h"

#include <gtest/gtest.h>
#include <set>

// What a user sees: pixels of the screen, not of any window's own memory.

namespace
{
std::set<COLORREF> GetColoursOnScreen(HWND hWnd)
{
    constexpr int step = 2; // pixels; atoms are larger
    RECT rc{};
    GetWindowRect(hWnd, &rc);
    const CWindowDc screen(nullptr);
    const CMemoryDc memory(screen.Get());
    const CBitmapHandle bitmap(CreateCompatibleBitmap(screen.Get(), rc.right - rc.left, rc.bottom - rc.top));
    const CSelectObject selected(memory.Get(), bitmap.Get());
    BitBlt(memory.Get(), 0, 0, rc.right - rc.left, rc.bottom - rc.top, screen.Get(), rc.left, rc.top, SRCCOPY);
    std::set<COLORREF> colours;
    for (int y = 0; y < rc.bottom - rc.top; y += step)
        for (int x = 0; x < rc.right - rc.left; x += step)
            colours.insert(GetPixel(memory.Get(), x, y));
    return colours;
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
        const std::set<COLORREF> colours = GetColoursOnScreen(hView);
        return colours.contains(RGB(0, 0, 0)) && colours.contains(RGB(255, 0, 0)) &&
               colours.contains(RGB(128, 128, 128)) && colours.contains(RGB(0, 255, 0));
    }));
}
