#pragma once

#include "classes/windows/drawing/CPicture.h"
#include "tests/windows/CFrameWatch.h"
#include "view/CPainterGdi.h"

#include <gtest/gtest.h>
#include <memory>
#include <vector>

// A GDI painter, the window that it paints, and a scene of many atoms.
class CGdiFrameTest : public testing::Test
{
protected:
    CGdiFrameTest();
    ~CGdiFrameTest() override;

    CFrame MakeFrame(const SIZE& size = {300, 200}) const;

    // The frame in the plain form, on a bitmap like the screen's.
    CPixels DrawPlain(const CFrame& frame) const;

    // The frame as the painter brings it to the window.
    CPixels Paint(const CFrame& frame);

    void ExpectPlainFrame(const CFrame& frame);

    // Whether the system has drawn all atoms of the last frame.
    bool HasSystemDrawn() const;

    // Paints frames until the painter fills all atoms itself.
    void LearnShapes();

    HWND m_hWnd;
    CPicture m_backdrop;
    CPicture m_world;
    std::vector<CAtom> m_atoms; // in the world and some pixels around it
    std::unique_ptr<CFrameWatch> m_pWatch;
    CPainterGdi m_painter;
};
