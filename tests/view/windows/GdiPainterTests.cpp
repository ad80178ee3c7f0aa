#include "classes/windows/system/Handles.h"
#include "tests/view/windows/CViewTest.h"
#include "tests/view/windows/PlainGdiDrawing.h"
#include "tests/view/windows/ScreenCapture.h"
#include "view/AtomScene.h"
#include "view/CPainterGdi.h"
#include "view/EllipseRect.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <vector>

namespace
{

class GdiPainter : public CViewTest
{
protected:
    void SetUp() override { GetDirect2DSpy().hrFactory = E_FAIL; }

    // Opens a view that draws its atoms by speed without Direct2D.
    void OpenStarted(const CSize<int>& sizeWorld, std::int32_t count, EnumPicDrawMode eMode = EnumPicDrawMode::Tiled)
    {
        Open(sizeWorld, 300, 200, eMode);
        Scatter(count, 6);
        Start_Speed();
    }

    // Captures the view when its world is visible on the screen.
    CPixels CaptureWorld()
    {
        const CRect rcWorld = m_pView->GetWorldRect();
        return CaptureUntil(
            GetViewHandle(), [this] { m_pView->OnEraseBackground(); },
            [&](const CPixels& pixels) { return pixels.GetColour(rcWorld.left, rcWorld.top) == c_crWorld; });
    }

    CAtomScene MakeScene(const CRect& rcVisible, const CPoint<int>& ptWorld) const
    {
        CAtomScene scene;
        scene.pAtoms = m_atoms.GetAtoms();
        scene.count = m_atoms.GetCount();
        scene.fAverageSpeed = m_atoms.GetAvgVelocity();
        scene.settings[0] = {c_crSlow, 0, 0.75};
        scene.settings[1] = {c_crMiddle, 0, 0.0};
        scene.settings[2] = {c_crFast, 0, 1.25};
        scene.rcVisible = rcVisible;
        scene.ptWorld = ptWorld;
        return scene;
    }
};

// Counts the drawing calls in a recording device context.
struct CRecorded
{
    int iEllipses = 0;
    int iPens = 0; // a colour of the DC pen is recorded as a separate pen
};

int CALLBACK CountRecord(HDC, HANDLETABLE*, const ENHMETARECORD* pRecord, int, LPARAM lParam)
{
    auto* const pRecorded = reinterpret_cast<CRecorded*>(lParam);
    pRecorded->iEllipses += pRecord->iType == EMR_ELLIPSE ? 1 : 0;
    pRecorded->iPens += pRecord->iType == EMR_CREATEPEN || pRecord->iType == EMR_EXTCREATEPEN ? 1 : 0;
    return 1;
}

CRecorded Record(const CAtomScene& scene)
{
    const HDC hDc = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    DrawAtoms_Gdi(hDc, scene);
    const HENHMETAFILE hFile = CloseEnhMetaFile(hDc);
    CRecorded recorded;
    EnumEnhMetaFile(nullptr, hFile, CountRecord, &recorded, nullptr);
    DeleteEnhMetaFile(hFile);
    return recorded;
}

// Uses up all GDI objects that this process can still create.
class CGdiShortage
{
public:
    CGdiShortage()
    {
        while (HBRUSH hBrush = CreateSolidBrush(static_cast<COLORREF>(m_brushes.size())))
        {
            m_brushes.emplace_back(hBrush);
        }
    }

    void Free(std::size_t uCount) { m_brushes.resize(m_brushes.size() - uCount); }
    std::size_t GetCount() const { return m_brushes.size(); }

private:
    std::vector<CBrushHandle> m_brushes;
};

constexpr CRect c_rcPicture{0, 0, 300, 200};

} // namespace

TEST_F(GdiPainter, OnlyVisibleAtomsOfALargeScrolledWorldAreDrawn)
{
    m_sizeWorld = {9999, 9999};
    Scatter(100'000, 4);
    const CAtomScene scene = MakeScene({0, 0, 500, 400}, {-5000, -4000});
    int iTouching = 0;
    for (std::int32_t i = 0; i < m_atoms.GetCount(); ++i)
    {
        iTouching += Intersect(GetEllipseRect(m_atoms[i], scene.ptWorld), scene.rcVisible).IsEmpty() ? 0 : 1;
    }
    const CRecorded recorded = Record(scene);
    EXPECT_GT(iTouching, 100);
    EXPECT_GE(recorded.iEllipses, iTouching);
    EXPECT_LE(recorded.iEllipses, iTouching + iTouching / 10);
}

TEST_F(GdiPainter, PenAndBrushChangeOnlyWithTheClass)
{
    m_sizeWorld = {300, 200};
    Scatter(60, 4);
    for (std::int32_t i = 0; i < m_atoms.GetCount(); ++i)
    {
        m_atoms[i].speed = i < 20 ? 0.5F : 1.5F;
    }
    const CRecorded twoRuns = Record(MakeScene(c_rcPicture, {0, 0}));
    EXPECT_EQ(twoRuns.iEllipses, 60);
    for (std::int32_t i = 0; i < m_atoms.GetCount(); ++i)
    {
        m_atoms[i].speed = i % 2 == 0 ? 0.5F : 1.5F;
    }
    const CRecorded alternating = Record(MakeScene(c_rcPicture, {0, 0}));
    EXPECT_EQ(alternating.iEllipses, 60);
    EXPECT_EQ(alternating.iPens - twoRuns.iPens, 58); // 60 changes instead of 2
}

TEST_F(GdiPainter, CulledAtomsChangeNoPixel)
{
    m_sizeWorld = {600, 400};
    Scatter(300, 9);
    const CAtomScene scene = MakeScene(c_rcPicture, {-150, -100});
    const CWindowDc screen(nullptr);
    std::array<CPixels, 2> pictures;
    for (std::size_t u = 0; u < pictures.size(); ++u)
    {
        const CMemoryDc memory(screen.Get());
        const CBitmapHandle bitmap(CreateCompatibleBitmap(screen.Get(), c_rcPicture.right, c_rcPicture.bottom));
        const CSelectObject selected(memory.Get(), bitmap.Get());
        if (u == 0)
        {
            DrawAtoms_Gdi(memory.Get(), scene);
        }
        else
        {
            DrawAtoms_Plain(memory.Get(), scene);
        }
        pictures[u] = CaptureContext(memory.Get(), 0, 0, c_rcPicture.right, c_rcPicture.bottom);
    }
    EXPECT_EQ(pictures[1], pictures[0]);
}

TEST_F(GdiPainter, InFixedModeOnlyBackdropAndWorldAreDrawn)
{
    OpenStarted({200, 150}, 40);
    Start_Fixed(L"10", L"", L"25%");
    const CRect rcWorld = m_pView->GetWorldRect();
    const CPixels picture = CaptureWorld();
    for (int y = rcWorld.top; y < rcWorld.bottom; ++y)
    {
        for (int x = rcWorld.left; x < rcWorld.right; ++x)
        {
            ASSERT_EQ(picture.GetColour(x, y), static_cast<COLORREF>(c_crWorld)) << x << ' ' << y;
        }
    }
    EXPECT_NE(picture.GetColour(0, 0), static_cast<COLORREF>(c_crWorld));
}

TEST_F(GdiPainter, TheBackdropContinuesTheParentsBackdropInEveryMode)
{
    for (const EnumPicDrawMode eMode :
         {EnumPicDrawMode::Plain, EnumPicDrawMode::Fitted, EnumPicDrawMode::Stretched, EnumPicDrawMode::Tiled})
    {
        m_pView.reset();
        OpenStarted({100, 80}, 0, eMode);
        // The view must show the part of this backdrop that lies behind it.
        CPicture backdrop = *m_pParent->GetBackdrop();
        const RECT rcParent{-20, -30, CTestParent::c_iWidth - 20, CTestParent::c_iHeight - 30};
        backdrop.SetDrawingRect(&rcParent);
        const CWindowDc screen(nullptr);
        const CMemoryDc memory(screen.Get());
        const CBitmapHandle bitmap(CreateCompatibleBitmap(screen.Get(), c_rcPicture.right, c_rcPicture.bottom));
        const CSelectObject selected(memory.Get(), bitmap.Get());
        backdrop.DrawByMode(memory.Get(), eMode);
        const RECT rcWorld{100, 60, 200, 140};
        const CBrushHandle world(CreateSolidBrush(c_crWorld));
        FillRect(memory.Get(), &rcWorld, world.Get());
        const CPixels expected = CaptureContext(memory.Get(), 0, 0, c_rcPicture.right, c_rcPicture.bottom);
        EXPECT_EQ(CaptureUntil(
                      GetViewHandle(), [this] { m_pView->OnEraseBackground(); },
                      [&](const CPixels& pixels) { return pixels == expected; }),
                  expected)
            << static_cast<int>(eMode);
    }
}

TEST_F(GdiPainter, WithoutABackdropOrWithAnEmptyOneNothingIsDrawn)
{
    OpenStarted({200, 150}, 10);
    const CPixels before = CaptureWorld();
    CPicture world;
    world.CreatePictureFromColorref(nullptr, 300, 200, RGB(255, 255, 255));
    CPicture backdrop = *m_pParent->GetBackdrop();
    const RECT rcEmpty{10, 10, 10, 50};
    backdrop.SetDrawingRect(&rcEmpty);
    CFrame frame;
    frame.hWnd = GetViewHandle();
    frame.sizeWindow = {300, 200};
    frame.pWorld = &world;
    const auto paint = [&] { CPainterGdi().PaintFrame(frame); };
    for (const CPicture* const pBackdrop :
         {static_cast<const CPicture*>(nullptr), static_cast<const CPicture*>(&backdrop)})
    {
        frame.pBackdrop = pBackdrop;
        // Repeats the frame, so that any drawing would reach the screen.
        int iCaptures = 0;
        EXPECT_EQ(CaptureUntil(GetViewHandle(), paint, [&](const CPixels&) { return ++iCaptures == 3; }), before);
    }
    const RECT rcFull{0, 0, 300, 200};
    backdrop.SetDrawingRect(&rcFull);
    constexpr COLORREF c_crWhite = 0xFFFFFF;
    const auto isWhite = [](const CPixels& pixels) { return pixels.GetColour(150, 100) == c_crWhite; };
    EXPECT_TRUE(isWhite(CaptureUntil(GetViewHandle(), paint, isWhite)));
}

TEST_F(GdiPainter, AWindowWithoutADeviceContextGetsNoFrame)
{
    OpenStarted({200, 150}, 10);
    CFrame frame;
    frame.hWnd = reinterpret_cast<HWND>(static_cast<LONG_PTR>(0x7FFFFFF0)); // no such window
    frame.sizeWindow = {300, 200};
    frame.pBackdrop = m_pParent->GetBackdrop();
    frame.pWorld = m_pParent->GetBackdrop();
    CPainterGdi().PaintFrame(frame);
}

// Without a free GDI object the memory context or its bitmap cannot be created. Frames are skipped, nothing leaks, and
// the next frame with free objects is drawn.
TEST_F(GdiPainter, AShortageOfGdiObjectsSkipsFramesAndLeaksNothing)
{
    OpenStarted({200, 150}, 10);
    const CPixels picture = CaptureWorld();
    std::size_t uRoom = 0;
    {
        const CGdiShortage shortage;
        uRoom = shortage.GetCount();
        ASSERT_GT(uRoom, 100U);
    }
    for (std::size_t uFree = 0; uFree < 8; ++uFree)
    {
        CGdiShortage shortage;
        shortage.Free(uFree);
        m_pView->OnEraseBackground();
    }
    m_pView->OnEraseBackground();
    EXPECT_EQ(CaptureClientArea(GetViewHandle()), picture);
    EXPECT_EQ(uRoom, CGdiShortage().GetCount());
}
