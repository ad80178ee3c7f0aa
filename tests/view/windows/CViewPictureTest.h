#pragma once

#include "tests/view/windows/CViewTest.h"
#include "tests/view/windows/ScreenCapture.h"
#include "tests/view/windows/SoftwareDrawing.h"

#include <cstdint>

// Compares the screen with a plain software drawing of the same atoms.
class CViewPictureTest : public CViewTest
{
protected:
    // Pixels nearer to a circle's edge than this are not compared: Direct2D anti-aliases them, and GDI moves them by up
    // to half a pixel in each direction when it rounds the enclosing rectangle.
    static constexpr float c_fEdgeDirect2D = 1.0F;
    static constexpr float c_fEdgeGdi = 1.5F;

    struct CComparison
    {
        int iCompared{};
        int iInside{}; // compared pixels inside atoms
        int iWrong{};
    };

    ~CViewPictureTest() override;

    // Creates a top-level window in which Direct2D's frames become visible.
    void ShowDirect2D();
    HWND GetShown() const { return m_hShow != nullptr ? m_hShow : GetViewHandle(); }

    COLORREF GetSpeedColour(std::int32_t i) const;
    static COLORREF GetClassColour(int iClass);

    CExpectedScene MakeScene(float fTolerance) const;
    static CComparison Compare(const CExpectedPicture& expected, const CPixels& picture);
    void ExpectScreen(const CExpectedScene& scene);

private:
    HWND m_hShow = nullptr;
};
