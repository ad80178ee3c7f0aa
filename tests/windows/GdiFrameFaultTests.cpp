#include "tests/windows/CGdiFrameTest.h"
#include "tests/windows/CMemoryFault.h"
#include "tests/windows/CReplacedImport.h"

#include <cstddef>

// The system refuses what the GDI painter needs to fill the atoms itself. Its frames must be the same, or none.

namespace
{
std::size_t s_uRefused = 0; // calls of the replaced functions below

HBITMAP WINAPI RefuseSection(HDC, const BITMAPINFO*, UINT, void**, HANDLE, DWORD)
{
    ++s_uRefused;
    return nullptr;
}

HDC WINAPI RefuseMemoryDc(HDC)
{
    ++s_uRefused;
    return nullptr;
}

int WINAPI TellHighColour(HDC, int iWhat)
{
    ++s_uRefused;
    return iWhat == BITSPIXEL ? 16 : 1;
}

int WINAPI TellPlanes(HDC, int iWhat)
{
    ++s_uRefused;
    return iWhat == PLANES ? 4 : 32;
}

class GdiFrameFault : public CGdiFrameTest
{
protected:
    GdiFrameFault() { s_uRefused = 0; }
};
} // namespace

TEST_F(GdiFrameFault, OnAScreenOfFewerColoursTheSystemDraws)
{
    LearnShapes();
    for (auto* const pTell : {TellHighColour, TellPlanes})
    {
        const CPixels plain = DrawPlain(MakeFrame());
        const CReplacedImport telling("GetDeviceCaps", pTell);
        EXPECT_TRUE(Paint(MakeFrame()) == plain);
        EXPECT_TRUE(HasSystemDrawn());
    }
    EXPECT_GT(s_uRefused, 0u);
}

TEST_F(GdiFrameFault, WithoutADibSectionTheSystemDraws)
{
    LearnShapes();
    const CFrame frame = MakeFrame({310, 210});
    const CPixels plain = DrawPlain(frame);
    {
        const CReplacedImport refusing("CreateDIBSection", RefuseSection);
        EXPECT_TRUE(Paint(frame) == plain);
        EXPECT_TRUE(HasSystemDrawn());
        EXPECT_EQ(s_uRefused, 1u);
    }
    EXPECT_TRUE(Paint(frame) == plain);
    EXPECT_EQ(m_pWatch->GetEllipses(), 0);
}

TEST_F(GdiFrameFault, WithoutADibSectionForTheShapesTheSystemDrawsUntilTheNextRun)
{
    const CPixels plain = DrawPlain(MakeFrame());
    {
        const CReplacedImport refusing("CreateDIBSection", RefuseSection);
        EXPECT_TRUE(Paint(MakeFrame()) == plain);
    }
    EXPECT_GT(s_uRefused, 0u);
    EXPECT_TRUE(Paint(MakeFrame()) == plain);
    EXPECT_TRUE(HasSystemDrawn());
    m_painter.BeginRun();
    LearnShapes();
}

TEST_F(GdiFrameFault, WithoutAMemoryContextTheFrameIsSkipped)
{
    LearnShapes();
    m_pWatch->Forget();
    {
        const CReplacedImport refusing("CreateCompatibleDC", RefuseMemoryDc);
        m_painter.PaintFrame(MakeFrame());
    }
    EXPECT_GT(s_uRefused, 0u);
    EXPECT_EQ(m_pWatch->GetFrames(), 0);
    ExpectPlainFrame(MakeFrame());
}

TEST_F(GdiFrameFault, AnyAllocationOfAFrameMayFail)
{
    const CPixels plain = DrawPlain(MakeFrame());
    std::size_t uPlace = 0;
    for (bool bFailed = true; bFailed; ++uPlace)
    {
        CPainterGdi painter;
        m_pWatch->Forget();
        {
            const CMemoryFault fault(uPlace);
            painter.PaintFrame(MakeFrame());
            bFailed = fault.GetCount() != 0;
        }
        EXPECT_TRUE(m_pWatch->GetFrame() == plain) << uPlace;
        painter.PaintFrame(MakeFrame());
        EXPECT_TRUE(m_pWatch->GetFrame() == plain) << uPlace;
    }
    EXPECT_GT(uPlace, 2u) << "hardly anything has failed";
}
