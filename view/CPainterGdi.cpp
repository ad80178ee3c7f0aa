#include "view/CPainterGdi.h"

#include "classes/windows/drawing/CPictureBits.h"
#include "classes/windows/drawing/OffScreenDrawing.h"
#include "classes/windows/system/Handles.h"
#include "classes/windows/system/RectHelpers.h"
#include "view/AtomSpans.h"
#include "view/CAtomShapes.h"
#include "view/CEllipseDrawing.h"
#include "view/CEllipseSource.h"
#include "view/EllipseRect.h"

#include <cstddef>
#include <new>
#include <optional>

namespace
{

constexpr int c_iNoClass = -1;

bool HasDrawableBackdrop(const CFrame& frame)
{
    RECT rc{};
    return frame.pBackdrop != nullptr && frame.pBackdrop->GetDrawingRect(&rc, false) && !IsRectEmpty_Plain(rc);
}

bool ShowsAtoms(const CFrame& frame)
{
    return frame.scene.eMode == EnumAtomColourMode::Speed && frame.scene.count > 0;
}

// On a screen of fewer colours the system may round those of a pen and a brush in its own way.
bool HasFullColours(HDC hDc)
{
    constexpr int c_iBits = 32;
    return GetDeviceCaps(hDc, BITSPIXEL) == c_iBits && GetDeviceCaps(hDc, PLANES) == 1;
}

void DrawBackground(HDC hDc, const CFrame& frame)
{
    frame.pBackdrop->DrawByMode(hDc, frame.eBackdropMode);
    frame.pWorld->DrawTiled(hDc, false);
}

void PaintFrame_Ellipses(HDC hDcWindow, const CFrame& frame)
{
    const RECT rcWindow{0, 0, frame.sizeWindow.cx, frame.sizeWindow.cy};
    DrawOffScreen(hDcWindow, rcWindow, [&](HDC hDc) {
        DrawBackground(hDc, frame);
        if (ShowsAtoms(frame))
        {
            DrawAtoms_Gdi(hDc, frame.scene);
        }
    });
}

} // namespace

CPainterGdi::CPainterGdi() = default;

CPainterGdi::~CPainterGdi() = default;

void CPainterGdi::PaintFrame(const CFrame& frame)
{
    if (!HasDrawableBackdrop(frame))
    {
        return;
    }
    const CWindowDc dcWindow(frame.hWnd);
    // A right-to-left view mirrors its context and so would mirror the frame: atoms would not start at the point that
    // the user clicked.
    constexpr DWORD c_dwLeftToRight = 0;
    SetLayout(dcWindow.Get(), c_dwLeftToRight);
    if (!ShowsAtoms(frame) || !HasFullColours(dcWindow.Get()) || !PaintFrame_Spans(dcWindow.Get(), frame))
    {
        PaintFrame_Ellipses(dcWindow.Get(), frame);
    }
}

// False, with the window unchanged, if the frame cannot be drawn in this way.
bool CPainterGdi::PaintFrame_Spans(HDC hDcWindow, const CFrame& frame)
{
    if (!PrepareSpans(frame.sizeWindow))
    {
        return false;
    }
    const CMemoryDc memory(hDcWindow);
    if (!memory)
    {
        return false;
    }
    const CSelectObject selected(memory.Get(), m_pBits->GetBitmap());
    DrawBackground(memory.Get(), frame);
    GdiFlush(); // the background must be in the pixels before the atoms
    const SIZE size = m_pBits->GetSize();
    const CPixelArea area{m_pBits->GetPixels(), size.cx, size.cy};
    return DrawAtoms_Spans(frame.scene, *m_pShapes, area) &&
           BitBlt(hDcWindow, 0, 0, size.cx, size.cy, memory.Get(), 0, 0, SRCCOPY) != FALSE;
}

bool CPainterGdi::PrepareSpans(const SIZE& size)
{
    try
    {
        return EnsureShapes() && EnsureBits(size);
    }
    catch (const std::bad_alloc&)
    {
        return false;
    }
}

bool CPainterGdi::EnsureShapes()
{
    if (!m_bLearned)
    {
        m_bLearned = true;
        CEllipseSource source;
        if (const std::optional<CAtomShapes> shapes = CAtomShapes::Learn(source))
        {
            m_pShapes = std::make_unique<const CAtomShapes>(*shapes);
        }
    }
    return m_pShapes != nullptr;
}

bool CPainterGdi::EnsureBits(const SIZE& size)
{
    if (m_pBits == nullptr || m_pBits->GetSize().cx != size.cx || m_pBits->GetSize().cy != size.cy)
    {
        m_pBits.reset(); // first, so that there is never memory for two
        m_pBits = CPictureBits::Create(size.cx, size.cy);
    }
    return m_pBits != nullptr;
}

void DrawAtoms_Gdi(HDC hDc, const CAtomScene& scene)
{
    const CEllipseDrawing drawing(hDc);
    int iCurrentClass = c_iNoClass;
    DrawAtoms_Speed(scene, [&](const CAtom& atom, int iClass) {
        if (iClass != iCurrentClass)
        {
            drawing.SetColour(scene.settings[static_cast<std::size_t>(iClass)].cr);
            iCurrentClass = iClass;
        }
        drawing.Draw(GetEllipseRect(atom, scene.ptWorld));
    });
}
