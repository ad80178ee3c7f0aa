#pragma once

#include <windows.h>

#include <d2d1.h>

#include <cstdint>

#include "classes/windows/system/Handles.h"

// The brush with which one render target draws one picture, kept from frame to frame.
//
// The target is referenced while its brush is kept. If it were released, a new target at the same address could be
// mistaken for it.
class CPictureDevice
{
public:
    // Fills the rectangle with one colour.
    HRESULT FillSolid(ID2D1HwndRenderTarget* pTarget, const RECT& rc, COLORREF cr);
    // Repeats the pixels (0xFFRRGGBB, rows from the top) over the rectangle, from its left top corner on.
    HRESULT FillTiled(ID2D1HwndRenderTarget* pTarget, const RECT& rc, const std::uint32_t* pPixels, SIZE size);

private:
    void UseTarget(ID2D1HwndRenderTarget* pTarget);

    CComPtr<ID2D1HwndRenderTarget> m_pTarget;
    CComPtr<ID2D1SolidColorBrush> m_pSolidBrush;
    CComPtr<ID2D1BitmapBrush> m_pTileBrush;
};
