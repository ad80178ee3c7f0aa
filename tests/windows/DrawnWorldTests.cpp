#include "app/CKinetarium.h"
#include "headless/pictures/CWorldImage.h"
#include "settings/SettingRows.h"
#include "tests/view/windows/ScreenCapture.h"
#include "tests/windows/CHeldWorker.h"
#include "tests/windows/CRunningApplication.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <optional>

// Compares the world on the screen with the software drawing of kinetarium-headless, pixel by pixel, for the same
// atoms: the worker stands still. The system's Direct2D draws the world if it can be loaded, and GDI otherwise.

namespace
{
constexpr LPARAM c_iKeyReleased = static_cast<LPARAM>(0xC0000001);

// Only the software drawing and the Direct2D of Windows anti-alias. So the pixels at an edge may differ, and only their
// mean is limited: 12 to 16 levels were measured, with GDI and with Direct2D under Wine.
constexpr double c_dEdgeTolerance = 24.0;
constexpr int c_iFewestInside = 1000; // pixels

bool HasSystemDirect2D()
{
    const HMODULE hLibrary = LoadLibraryExW(L"d2d1.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (hLibrary != nullptr)
    {
        FreeLibrary(hLibrary);
    }
    return hLibrary != nullptr;
}

std::wstring GetFileText(const CSettingRow& row, const CSettings& settings)
{
    return std::visit(
        [](const auto* pValue) -> std::wstring {
            using CValue = std::remove_cvref_t<decltype(*pValue)>;
            if constexpr (std::is_same_v<CValue, CFactor>)
            {
                return pValue->GetText().c_str();
            }
            else
            {
                return std::to_wstring(static_cast<std::uint32_t>(*pValue));
            }
        },
        row.place.Find(settings));
}

// The largest difference of the red, green or blue of two colours, in levels of 255.
int GetDifference(COLORREF cr, COLORREF crOther)
{
    return std::max({std::abs(GetRValue(cr) - GetRValue(crOther)), std::abs(GetGValue(cr) - GetGValue(crOther)),
                     std::abs(GetBValue(cr) - GetBValue(crOther))});
}

struct CDifferences
{
    int iInside = 0;         // pixels of atoms, away from edges
    int iOutside = 0;        // pixels of the background, away from edges
    int iEdges = 0;          // pixels at the edge of an atom
    int iWorst = 0;          // away from edges, in levels
    double dSumAtEdges = 0.; // in levels
};

class CSoftwarePicture
{
public:
    explicit CSoftwarePicture(const CWorldImage& image) : m_Image(image) {}

    COLORREF Get(int x, int y) const
    {
        constexpr std::size_t c_uChannels = 3;
        const auto uPixel =
            static_cast<std::size_t>(y) * static_cast<std::size_t>(m_Image.GetSize().cx) + static_cast<std::size_t>(x);
        const std::uint8_t* const p = &m_Image.GetPixels()[uPixel * c_uChannels];
        return RGB(p[0], p[1], p[2]);
    }

    // True if a pixel of another colour is within iReach pixels, horizontally and vertically.
    bool IsNearEdge(int x, int y, int iReach) const
    {
        const int iLastX = std::min(x + iReach, m_Image.GetSize().cx - 1);
        const int iLastY = std::min(y + iReach, m_Image.GetSize().cy - 1);
        for (int iY = std::max(y - iReach, 0); iY <= iLastY; ++iY)
        {
            for (int iX = std::max(x - iReach, 0); iX <= iLastX; ++iX)
            {
                if (Get(iX, iY) != Get(x, y))
                {
                    return true;
                }
            }
        }
        return false;
    }

private:
    const CWorldImage& m_Image;
};
} // namespace

class DrawnWorld : public testing::Test
{
protected:
    DrawnWorld()
    {
        constexpr ColourRef c_crBackground = MakeColour(16, 32, 64);
        m_Settings.world = {300, 240};
        m_Settings.background = c_crBackground;
        m_Settings.atoms = 60;
        m_Settings.minRadius = 4;
        m_Settings.maxRadius = 12;
        m_Settings.colours = {MakeColour(255, 0, 0), MakeColour(128, 128, 128), MakeColour(0, 255, 0)};
        m_Settings.factors = {CFactor(L"0.75"), CFactor(), CFactor(L"1.25")};
    }

    void UseFixedMode()
    {
        m_Settings.eMode = EnumAtomColourMode::Fixed;
        m_Settings.factors = {CFactor(L"20"), CFactor(L""), CFactor(L"50%")};
    }

    // Starts the program with the settings, starts the simulation, and holds its worker before the next frame.
    void Run()
    {
        DeleteFileW(CRunningApplication::GetSettingsPath().c_str());
        for (const CSettingRow& row : c_SettingRows)
        {
            CRunningApplication::WriteSetting(row.sFileKey, GetFileText(row, m_Settings).c_str());
        }
        m_Application.emplace(true);
        m_Application->Do([](CKinetarium& inside) { CKinetariumProbe::Start(inside); });
        ASSERT_TRUE(m_Worker.Wait());
    }

    ~DrawnWorld() override { m_Worker.Open(); }

    CWorldImage DrawExpected(CKinetarium& inside);
    CDifferences Compare(const CWorldImage& image, const CPixels& screen) const;
    void ExpectTheSoftwareDrawing();

    CSettings m_Settings;
    CHeldWorker m_Worker;
    std::optional<CRunningApplication> m_Application;
    CRect m_rcWorld; // in the view's client area
    const bool m_bDirect2D = HasSystemDirect2D();
};

// GDI draws no atoms in fixed mode.
CWorldImage DrawnWorld::DrawExpected(CKinetarium& inside)
{
    m_Settings.world = CKinetariumProbe::GetWorldSize(inside);
    m_rcWorld = CKinetariumProbe::GetWorldRect(inside);
    const bool bAtoms = m_bDirect2D || m_Settings.eMode == EnumAtomColourMode::Speed;
    return bAtoms ? DrawWorld(CKinetariumProbe::GetAtoms(inside), m_Settings)
                  : CWorldImage(m_Settings.world, m_Settings.background);
}

CDifferences DrawnWorld::Compare(const CWorldImage& image, const CPixels& screen) const
{
    // GDI moves an edge by up to half a pixel in each direction when it rounds the enclosing rectangle.
    const int iReach = m_bDirect2D ? 1 : 2;
    const CSoftwarePicture software(image);
    CDifferences result;
    for (int y = std::max(m_rcWorld.top, 0); y < std::min(m_rcWorld.bottom, screen.iHeight); ++y)
    {
        for (int x = std::max(m_rcWorld.left, 0); x < std::min(m_rcWorld.right, screen.iWidth); ++x)
        {
            const COLORREF cr = software.Get(x - m_rcWorld.left, y - m_rcWorld.top);
            const int iDifference = GetDifference(cr, screen.GetColour(x, y));
            if (software.IsNearEdge(x - m_rcWorld.left, y - m_rcWorld.top, iReach))
            {
                ++result.iEdges;
                result.dSumAtEdges += iDifference;
                continue;
            }
            ++(cr == m_Settings.background ? result.iOutside : result.iInside);
            result.iWorst = std::max(result.iWorst, iDifference);
        }
    }
    return result;
}

void DrawnWorld::ExpectTheSoftwareDrawing()
{
    HWND hView = nullptr;
    std::optional<CWorldImage> image;
    m_Application->Do([&](CKinetarium& inside) {
        hView = CKinetariumProbe::GetView(inside);
        image = DrawExpected(inside);
    });
    const CPixels screen = CaptureUntil(
        hView, [&] { m_Application->Do([hView](CKinetarium&) { SendMessageW(hView, WM_ERASEBKGND, 0, 0); }); },
        [&](const CPixels& pixels) { return Compare(*image, pixels).iWorst <= 1; });
    const CDifferences result = Compare(*image, screen);
    const double dMeanAtEdges = result.dSumAtEdges / std::max(result.iEdges, 1);
    std::cout << (m_bDirect2D ? "Direct2D" : "GDI") << ": " << result.iInside << " pixels inside atoms and "
              << result.iOutside << " outside, largest difference " << result.iWorst << " of 255; " << result.iEdges
              << " at edges, mean difference " << dMeanAtEdges << std::endl;
    // The colours of Direct2D go through floats.
    EXPECT_LE(result.iWorst, m_bDirect2D ? 1 : 0);
    EXPECT_LE(dMeanAtEdges, c_dEdgeTolerance);
    // In fixed mode this tells who has drawn.
    EXPECT_EQ(result.iInside > c_iFewestInside, m_bDirect2D || m_Settings.eMode == EnumAtomColourMode::Speed);
}

TEST_F(DrawnWorld, SpeedModeLooksLikeTheSoftwareDrawing)
{
    Run();
    ExpectTheSoftwareDrawing();
}

TEST_F(DrawnWorld, FixedModeLooksLikeTheSoftwareDrawing)
{
    UseFixedMode();
    Run();
    ExpectTheSoftwareDrawing();
}

TEST_F(DrawnWorld, AScrolledWorldLooksLikeTheSoftwareDrawing)
{
    m_Settings.world = {2000, 1500};
    m_Settings.atoms = 2000;
    UseFixedMode();
    Run();
    HWND hView = nullptr;
    m_Application->Do([&](CKinetarium& inside) { hView = CKinetariumProbe::GetView(inside); });
    SendMessageW(hView, WM_HSCROLL, MAKEWPARAM(SB_PAGEDOWN, 0), 0);
    SendMessageW(hView, WM_VSCROLL, MAKEWPARAM(SB_PAGEDOWN, 0), 0);
    ExpectTheSoftwareDrawing();
    EXPECT_LT(m_rcWorld.left, 0);
    EXPECT_LT(m_rcWorld.top, 0);
}

TEST_F(DrawnWorld, FullScreenLooksLikeTheSoftwareDrawing)
{
    m_Settings.atoms = 1000;
    UseFixedMode();
    Run();
    m_Worker.Open();
    SendMessageW(m_Application->GetMain(), WM_KEYUP, VK_F11, c_iKeyReleased);
    ASSERT_TRUE(m_Application->WaitForRest());
    m_Worker.Close();
    ASSERT_TRUE(m_Worker.Wait());
    ExpectTheSoftwareDrawing();
    const CSize<int> screen{GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    EXPECT_EQ(m_Settings.world, screen);
}
