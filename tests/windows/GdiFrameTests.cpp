#include "classes/windows/drawing/CPicture.h"
#include "classes/windows/system/Handles.h"
#include "tests/view/windows/PlainGdiDrawing.h"
#include "tests/windows/CFrameWatch.h"
#include "tests/windows/CMemoryFault.h"
#include "view/CPainterGdi.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <vector>

// Whole frames of the GDI painter, as they reach the window, against the plain form in which the system draws every
// atom. Where the painter cannot fill the atoms itself, its frames must be those of the plain form too.

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

CPicture MakeTexture(const RECT& rc)
{
    constexpr int c_iSide = 19;
    std::vector<std::uint32_t> pixels;
    for (std::uint32_t u = 0; u < c_iSide * c_iSide; ++u)
    {
        pixels.push_back(u * 0x031507u & 0xFFFFFFu);
    }
    CPicture picture;
    picture.CreateFromPixels(c_iSide, c_iSide, pixels.data());
    picture.SetDrawingRect(&rc);
    return picture;
}

CPicture MakeWorld(const RECT& rc)
{
    CPicture picture;
    picture.CreatePictureFromColorref(nullptr, rc.right - rc.left, rc.bottom - rc.top, 0x203040);
    picture.SetDrawingRect(&rc);
    return picture;
}

class GdiFrame : public testing::Test
{
protected:
    GdiFrame()
        : m_hWnd(CreateWindowExW(WS_EX_NOACTIVATE, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 400, 300, nullptr,
                                 nullptr, GetModuleHandleW(nullptr), nullptr)),
          m_backdrop(MakeTexture({-11, -7, 420, 330})), m_world(MakeWorld({20, 15, 270, 165})),
          m_pWatch(std::make_unique<CFrameWatch>(m_hWnd))
    {
        s_uRefused = 0;
        Scatter(300, 1, 32);
    }

    ~GdiFrame() override
    {
        m_pWatch.reset();
        DestroyWindow(m_hWnd);
    }

    // Fills the world, and some pixels around it, with atoms of these radii.
    void Scatter(int iCount, std::uint8_t uMinRadius, std::uint8_t uMaxRadius)
    {
        std::mt19937_64 random(41);
        std::uniform_real_distribution<float> x(-80.0F, 330.0F);
        std::uniform_real_distribution<float> y(-80.0F, 240.0F);
        std::uniform_real_distribution<float> speed(0.0F, 2.0F);
        m_atoms.assign(static_cast<std::size_t>(iCount), CAtom());
        for (CAtom& atom : m_atoms)
        {
            atom.x = x(random);
            atom.y = y(random);
            atom.speed = speed(random);
            atom.radius = static_cast<std::uint8_t>(uMinRadius + random() % (uMaxRadius - uMinRadius + 1U));
        }
    }

    CFrame MakeFrame(const SIZE& size = {300, 200}) const
    {
        CFrame frame;
        frame.hWnd = m_hWnd;
        frame.sizeWindow = size;
        frame.pBackdrop = &m_backdrop;
        frame.pWorld = &m_world;
        frame.scene.pAtoms = m_atoms.data();
        frame.scene.count = static_cast<std::int32_t>(m_atoms.size());
        frame.scene.fAverageSpeed = 1.0F;
        frame.scene.settings = {AtomColourSetting{0x0000C8, 0, 0.75}, AtomColourSetting{0x00A000, 0, 0},
                                AtomColourSetting{0xF06000, 0, 1.25}};
        frame.scene.rcVisible = {0, 0, size.cx, size.cy};
        frame.scene.ptWorld = {20, 15};
        return frame;
    }

    // The frame in the plain form, on a bitmap like the screen's.
    CPixels DrawPlain(const CFrame& frame) const
    {
        const CWindowDc screen(nullptr);
        const CMemoryDc memory(screen.Get());
        const CBitmapHandle bitmap(CreateCompatibleBitmap(screen.Get(), frame.sizeWindow.cx, frame.sizeWindow.cy));
        const CSelectObject selected(memory.Get(), bitmap.Get());
        frame.pBackdrop->DrawByMode(memory.Get(), frame.eBackdropMode);
        frame.pWorld->DrawTiled(memory.Get(), false);
        DrawAtoms_Plain(memory.Get(), frame.scene);
        return CaptureContext(memory.Get(), 0, 0, frame.sizeWindow.cx, frame.sizeWindow.cy);
    }

    // The frame as the painter brings it to the window.
    CPixels Paint(const CFrame& frame)
    {
        m_pWatch->Forget();
        m_painter.PaintFrame(frame);
        EXPECT_EQ(m_pWatch->GetFrames(), 1);
        return m_pWatch->GetFrame();
    }

    void ExpectPlainFrame(const CFrame& frame)
    {
        const CPixels plain = DrawPlain(frame);
        EXPECT_TRUE(Paint(frame) == plain);
    }

    // Whether the system has drawn all atoms of the last frame.
    bool HasSystemDrawn() const { return m_pWatch->GetEllipses() >= 100; }

    void LearnShapes()
    {
        Paint(MakeFrame());
        ExpectPlainFrame(MakeFrame());
        Paint(MakeFrame());
        ASSERT_EQ(m_pWatch->GetEllipses(), 0) << "the painter does not fill the atoms itself";
    }

    HWND m_hWnd;
    CPicture m_backdrop;
    CPicture m_world;
    std::vector<CAtom> m_atoms;
    std::unique_ptr<CFrameWatch> m_pWatch;
    CPainterGdi m_painter;
};
} // namespace

TEST_F(GdiFrame, HasThePixelsOfThePlainFormInEveryModeOfTheBackdrop)
{
    for (const EnumPicDrawMode eMode :
         {EnumPicDrawMode::Plain, EnumPicDrawMode::Fitted, EnumPicDrawMode::Stretched, EnumPicDrawMode::Tiled})
    {
        CFrame frame = MakeFrame();
        frame.eBackdropMode = eMode;
        ExpectPlainFrame(frame);
    }
    for (int iScroll = 0; iScroll < 20; ++iScroll)
    {
        CFrame frame = MakeFrame();
        frame.scene.ptWorld = {20 - 9 * iScroll, 15 - 11 * iScroll};
        ExpectPlainFrame(frame);
    }
}

TEST_F(GdiFrame, TheSystemDrawsNoAtomOnceItsShapesAreKnown)
{
    ExpectPlainFrame(MakeFrame());
    EXPECT_EQ(m_pWatch->GetEllipses(), 6 * 128);
    ExpectPlainFrame(MakeFrame());
    Paint(MakeFrame());
    EXPECT_EQ(m_pWatch->GetEllipses(), 0);
    m_painter.BeginRun();
    Paint(MakeFrame());
    EXPECT_EQ(m_pWatch->GetEllipses(), 0) << "a new run has forgotten the shapes";
}

// Drawing may still be under way in GDI's batch when the atoms are filled in.
TEST_F(GdiFrame, TheBackgroundIsFinishedBeforeTheAtomsAreFilled)
{
    LearnShapes();
    const std::string sCalls = m_pWatch->GetCalls();
    ASSERT_GE(sCalls.size(), 3u);
    EXPECT_EQ(sCalls.substr(sCalls.size() - 3), "fgb");
}

TEST_F(GdiFrame, FollowsEveryChangeOfItsSize)
{
    LearnShapes();
    for (const SIZE size : {SIZE{300, 200}, SIZE{299, 200}, SIZE{299, 201}, SIZE{10, 10}, SIZE{1, 1}, SIZE{400, 300}})
    {
        ExpectPlainFrame(MakeFrame(size));
        Paint(MakeFrame(size));
        EXPECT_EQ(m_pWatch->GetEllipses(), 0) << size.cx << " x " << size.cy;
    }
}

TEST_F(GdiFrame, FixedModeShowsNoAtomAndAsksForNoShape)
{
    CFrame frame = MakeFrame();
    frame.scene.eMode = EnumAtomColourMode::Fixed;
    CFrame empty = MakeFrame();
    empty.scene.count = 0;
    const CPixels plain = DrawPlain(empty);
    EXPECT_TRUE(Paint(frame) == plain);
    EXPECT_TRUE(Paint(empty) == plain);
    EXPECT_EQ(m_pWatch->GetEllipses(), 0);
}

TEST_F(GdiFrame, AnAtomLargerThanAnyLegalOneIsDrawnByTheSystem)
{
    LearnShapes();
    m_atoms[7].radius = 40;
    m_atoms[7].x = 100.0F;
    m_atoms[7].y = 90.0F;
    ExpectPlainFrame(MakeFrame());
    Paint(MakeFrame());
    EXPECT_TRUE(HasSystemDrawn());
    m_atoms[7].radius = 32;
    Paint(MakeFrame());
    EXPECT_EQ(m_pWatch->GetEllipses(), 0);
}

TEST_F(GdiFrame, ASystemWhoseShapesDependOnThePositionDrawsThemItself)
{
    SetEllipses(EnumEllipses::DependOnPosition);
    ExpectPlainFrame(MakeFrame());
    ExpectPlainFrame(MakeFrame({310, 200}));
    Paint(MakeFrame());
    EXPECT_TRUE(HasSystemDrawn());
    EXPECT_LE(m_pWatch->GetEllipses(), static_cast<int>(m_atoms.size())) << "the shapes are examined in every frame";
}

TEST_F(GdiFrame, ASystemWhosePenAndBrushDifferDrawsThemItself)
{
    SetEllipses(EnumEllipses::TwoColours);
    ExpectPlainFrame(MakeFrame());
    ExpectPlainFrame(MakeFrame());
    Paint(MakeFrame());
    EXPECT_TRUE(HasSystemDrawn());
}

TEST_F(GdiFrame, TheStartOfARunExaminesRefusedShapesAgain)
{
    SetEllipses(EnumEllipses::DependOnPosition);
    Paint(MakeFrame());
    SetEllipses(EnumEllipses::Real);
    Paint(MakeFrame());
    EXPECT_TRUE(HasSystemDrawn());
    m_painter.BeginRun();
    LearnShapes();
}

TEST_F(GdiFrame, OnAScreenOfFewerColoursTheSystemDraws)
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

TEST_F(GdiFrame, WithoutADibSectionTheSystemDraws)
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

TEST_F(GdiFrame, WithoutADibSectionForTheShapesTheSystemDrawsUntilTheNextRun)
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

TEST_F(GdiFrame, WithoutAMemoryContextTheFrameIsSkipped)
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

TEST_F(GdiFrame, AnyAllocationOfAFrameMayFail)
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
