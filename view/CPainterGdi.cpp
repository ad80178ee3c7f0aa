#include "view/CPainterGdi.h"

#include "classes/windows/drawing/OffScreenDrawing.h"
#include "classes/windows/system/Handles.h"
#include "classes/windows/system/RectHelpers.h"
#include "view/EllipseRect.h"

#include <cstddef>

namespace
{

constexpr int c_iNoClass = -1;

bool HasDrawableBackdrop(const CFrame& frame)
{
    RECT rc{};
    return frame.pBackdrop != nullptr && frame.pBackdrop->GetDrawingRect(&rc, false) && !IsRectEmpty_Plain(rc);
}

void ComposeFrame(HDC hDc, const CFrame& frame)
{
    frame.pBackdrop->DrawByMode(hDc, frame.eBackdropMode);
    frame.pWorld->DrawTiled(hDc, false);
    if (frame.scene.eMode == EnumAtomColourMode::Speed && frame.scene.count > 0)
    {
        DrawAtoms_Gdi(hDc, frame.scene);
    }
}

} // namespace

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
    const RECT rcWindow{0, 0, frame.sizeWindow.cx, frame.sizeWindow.cy};
    DrawOffScreen(dcWindow.Get(), rcWindow, [&](HDC hDc) { ComposeFrame(hDc, frame); });
}

void DrawAtoms_Gdi(HDC hDc, const CAtomScene& scene)
{
    const CSelectObject pen(hDc, GetStockObject(DC_PEN));
    const CSelectObject brush(hDc, GetStockObject(DC_BRUSH));
    int iCurrentClass = c_iNoClass;
    DrawAtoms_Speed(scene, [&](const CAtom& atom, int iClass) {
        if (iClass != iCurrentClass)
        {
            const COLORREF cr = scene.settings[static_cast<std::size_t>(iClass)].cr;
            SetDCPenColor(hDc, cr);
            SetDCBrushColor(hDc, cr);
            iCurrentClass = iClass;
        }
        const CRect rc = GetEllipseRect(atom, scene.ptWorld);
        Ellipse(hDc, rc.left, rc.top, rc.right, rc.bottom);
    });
}
