#include "bench/GdiFrames.h"

#include "bench/CBenchmarkWorld.h"
#include "bench/Measurement.h"
#include "classes/windows/drawing/CPicture.h"
#include "classes/windows/drawing/OffScreenDrawing.h"
#include "classes/windows/system/Handles.h"
#include "view/CPainterGdi.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <vector>

namespace
{

constexpr double c_dMillisecondsPerTurn = 100;
constexpr int c_iTurns = 3;

struct CFrameScene
{
    CScene scene;
    CSize<int> view; // the left top part of the world that shows
};

constexpr std::array c_FrameScenes{
    CFrameScene{{"256, radius 3-5", {512, 512}, 256, 3, 5, 1, std::nullopt}, {512, 512}},
    CFrameScene{{"10,000, radius 3-5", {1000, 1000}, 10'000, 3, 5, 2, std::nullopt}, {1000, 1000}},
    CFrameScene{{"20,000, radius 3-5", {1000, 1000}, 20'000, 3, 5, 3, std::nullopt}, {1000, 1000}},
    CFrameScene{{"100,000, radius 3-5", {1000, 1000}, 100'000, 3, 5, 4, std::nullopt}, {1000, 1000}},
    CFrameScene{{"5,000 of 1,000,000 shown", {9999, 9999}, 1'000'000, 3, 5, 5, std::nullopt}, {700, 700}},
    CFrameScene{{"1,000,000, radius 3", {512, 512}, 1'000'000, 3, 3, 6, std::nullopt}, {512, 512}},
    CFrameScene{{"1,000,000, radius 32", {700, 700}, 1'000'000, 32, 32, 7, std::nullopt}, {700, 700}},
};

// A topmost window without a frame that shows what is drawn to it.
class CBenchmarkWindow
{
public:
    explicit CBenchmarkWindow(const CSize<int>& size)
        : m_hWnd(CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, size.cx,
                                 size.cy, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr))
    {
    }
    ~CBenchmarkWindow() { DestroyWindow(m_hWnd); }
    CBenchmarkWindow(const CBenchmarkWindow&) = delete;
    CBenchmarkWindow& operator=(const CBenchmarkWindow&) = delete;

    HWND Get() const { return m_hWnd; }

private:
    HWND m_hWnd;
};

CPicture MakeSolid(const CSize<int>& size, COLORREF cr)
{
    CPicture picture;
    picture.CreatePictureFromColorref(nullptr, size.cx, size.cy, cr);
    const RECT rc{0, 0, size.cx, size.cy};
    picture.SetDrawingRect(&rc);
    return picture;
}

CAtomScene MakeAtomScene(const CBenchmarkWorld& world, const CSize<int>& view)
{
    CAtomScene scene;
    scene.pAtoms = world.atoms.GetAtoms();
    scene.count = world.atoms.GetCount();
    scene.fAverageSpeed = world.atoms.GetAvgVelocity();
    scene.settings = {AtomColourSetting{RGB(255, 0, 0), 0, 0.75}, AtomColourSetting{RGB(128, 128, 128), 0, 0},
                      AtomColourSetting{RGB(0, 255, 0), 0, 1.25}};
    scene.rcVisible = {0, 0, view.cx, view.cy};
    return scene;
}

// The pixels that the window shows.
std::vector<COLORREF> Capture(HWND hWnd, const CSize<int>& size)
{
    const CWindowDc dc(hWnd);
    std::vector<COLORREF> pixels(static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy));
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(info.bmiHeader), size.cx, -size.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const CMemoryDc memory(dc.Get());
    const CBitmapHandle bitmap(CreateCompatibleBitmap(dc.Get(), size.cx, size.cy));
    {
        const CSelectObject selected(memory.Get(), bitmap.Get());
        BitBlt(memory.Get(), 0, 0, size.cx, size.cy, dc.Get(), 0, 0, SRCCOPY);
    }
    GetDIBits(memory.Get(), bitmap.Get(), 0, static_cast<UINT>(size.cy), pixels.data(), &info, DIB_RGB_COLORS);
    return pixels;
}

bool PrintFrame(const CFrameScene& frameScene)
{
    const CSize<int> view = frameScene.view;
    const CBenchmarkWorld world(frameScene.scene);
    const CBenchmarkWindow window(view);
    const CPicture backdrop = MakeSolid(view, RGB(0, 0, 64));
    const CPicture background = MakeSolid(view, RGB(0, 0, 0));
    CFrame frame;
    frame.hWnd = window.Get();
    frame.sizeWindow = {view.cx, view.cy};
    frame.pBackdrop = &backdrop;
    frame.pWorld = &background;
    frame.scene = MakeAtomScene(world, view);

    CPainterGdi painter;
    const auto paint = [&] { painter.PaintFrame(frame); };
    const auto paintEllipses = [&] {
        const CWindowDc dc(window.Get());
        DrawOffScreen(dc.Get(), {0, 0, view.cx, view.cy}, [&](HDC hDc) {
            backdrop.DrawByMode(hDc, frame.eBackdropMode);
            background.DrawTiled(hDc, false);
            DrawAtoms_Gdi(hDc, frame.scene);
        });
    };
    const double first = MeasureMilliseconds(1, paintEllipses);
    const std::vector<COLORREF> expected = Capture(window.Get(), view);
    paint();
    const bool bEqual = Capture(window.Get(), view) == expected;
    std::vector<double> ellipses{first};
    std::vector<double> times;
    for (int turn = 0; turn < c_iTurns; ++turn)
    {
        times.push_back(MeasureMilliseconds(std::max(1, static_cast<int>(c_dMillisecondsPerTurn / first)), paint));
        if (first < c_dMillisecondsPerTurn * c_dMillisecondsPerTurn)
        {
            ellipses.push_back(
                MeasureMilliseconds(std::max(1, static_cast<int>(c_dMillisecondsPerTurn / first)), paintEllipses));
        }
    }
    const double ellipseMs = *std::min_element(ellipses.begin(), ellipses.end());
    const double ms = *std::min_element(times.begin(), times.end());
    std::printf("%-26s %4d x %-4d %12.3f %12.3f %8.1f   %s\n", frameScene.scene.name, view.cx, view.cy, ellipseMs, ms,
                ellipseMs / ms, bEqual ? "equal" : "DIFFERENT");
    static_cast<void>(std::fflush(stdout));
    return bEqual;
}

} // namespace

bool PrintGdiFrames()
{
    std::printf("%-26s %-11s %12s %12s %8s   %s\n", "atoms", "view", "ellipses, ms", "painter, ms", "ratio", "pixels");
    bool bEqual = true;
    for (const CFrameScene& scene : c_FrameScenes)
    {
        bEqual = PrintFrame(scene) && bEqual;
    }
    return bEqual;
}
