#include "tests/windows/CGdiFrameTest.h"

#include "classes/windows/system/Handles.h"
#include "tests/view/windows/PlainGdiDrawing.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>

namespace
{
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

std::vector<CAtom> Scatter()
{
    constexpr std::size_t c_uAtoms = 300;
    constexpr unsigned c_uRadii = 32;
    std::mt19937_64 random(41);
    std::uniform_real_distribution<float> x(-80.0F, 330.0F);
    std::uniform_real_distribution<float> y(-80.0F, 240.0F);
    std::uniform_real_distribution<float> speed(0.0F, 2.0F);
    std::vector<CAtom> atoms(c_uAtoms);
    for (CAtom& atom : atoms)
    {
        atom.x = x(random);
        atom.y = y(random);
        atom.speed = speed(random);
        atom.radius = static_cast<std::uint8_t>(1 + random() % c_uRadii);
    }
    return atoms;
}
} // namespace

CGdiFrameTest::CGdiFrameTest()
    : m_hWnd(CreateWindowExW(WS_EX_NOACTIVATE, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 400, 300, nullptr, nullptr,
                             GetModuleHandleW(nullptr), nullptr)),
      m_backdrop(MakeTexture({-11, -7, 420, 330})),
      m_world(MakeWorld({20, 15, 270, 165})),
      m_atoms(Scatter()),
      m_pWatch(std::make_unique<CFrameWatch>(m_hWnd))
{
}

CGdiFrameTest::~CGdiFrameTest()
{
    m_pWatch.reset();
    DestroyWindow(m_hWnd);
}

CFrame CGdiFrameTest::MakeFrame(const SIZE& size) const
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

CPixels CGdiFrameTest::DrawPlain(const CFrame& frame) const
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

CPixels CGdiFrameTest::Paint(const CFrame& frame)
{
    m_pWatch->Forget();
    m_painter.PaintFrame(frame);
    EXPECT_EQ(m_pWatch->GetFrames(), 1);
    return m_pWatch->GetFrame();
}

void CGdiFrameTest::ExpectPlainFrame(const CFrame& frame)
{
    const CPixels plain = DrawPlain(frame);
    EXPECT_TRUE(Paint(frame) == plain);
}

bool CGdiFrameTest::HasSystemDrawn() const
{
    constexpr int c_iSurelyVisible = 100;
    return m_pWatch->GetEllipses() >= c_iSurelyVisible;
}

void CGdiFrameTest::LearnShapes()
{
    ExpectPlainFrame(MakeFrame());
    Paint(MakeFrame());
    ASSERT_EQ(m_pWatch->GetEllipses(), 0) << "the painter does not fill the atoms itself";
}
