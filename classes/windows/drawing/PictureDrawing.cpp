// Draws pictures: a part of CPicture with a file of its own.
#include "classes/windows/drawing/CPicture.h"
#include "classes/windows/drawing/CPictureBits.h"
#include "classes/windows/drawing/CPictureDevice.h"
#include "classes/windows/system/Handles.h"
#include "classes/windows/system/RectHelpers.h"

#include <algorithm>
#include <memory>

namespace
{
void FrameInside(HDC hDc, const RECT& rc)
{
    FrameRect(hDc, &rc, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
}

// The DC brush costs no object: a solid fill of any size is a single call.
void FillColour(HDC hDc, const RECT& rc, COLORREF cr)
{
    const COLORREF crOld = SetDCBrushColor(hDc, cr);
    FillRect(hDc, &rc, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    SetDCBrushColor(hDc, crOld);
}

// First coordinate of the grid iStart + n * iStep (n >= 0) whose tile still reaches to the right of iFrom.
int FirstTile(int iStart, int iStep, int iFrom)
{
    return iFrom <= iStart ? iStart : iStart + (iFrom - iStart) / iStep * iStep;
}

void BlitTiles(HDC hDc, const RECT& rcDrawing, const RECT& rcVisible, const CPictureBits& bits)
{
    const CMemoryDc source(hDc);
    const CSelectObject bitmap(source.Get(), bits.GetBitmap());
    const SIZE size = bits.GetSize();
    for (int y = FirstTile(rcDrawing.top, size.cy, rcVisible.top); y < rcVisible.bottom; y += size.cy)
    {
        for (int x = FirstTile(rcDrawing.left, size.cx, rcVisible.left); x < rcVisible.right; x += size.cx)
        {
            const int iWidth = std::min<int>(size.cx, rcDrawing.right - x);
            const int iHeight = std::min<int>(size.cy, rcDrawing.bottom - y);
            BitBlt(hDc, x, y, iWidth, iHeight, source.Get(), 0, 0, SRCCOPY);
        }
    }
}
} // namespace

bool CPicture::CanDraw(HDC hDc) const
{
    return hDc != nullptr && !IsEmpty() && !IsRectEmpty_Plain(m_rcDrawing);
}

void CPicture::DrawScaled(HDC hDc, const RECT& rcTarget, bool bFrame) const
{
    if (m_bSolid)
    {
        FillColour(hDc, rcTarget, m_crSolid);
    }
    else
    {
        const CMemoryDc source(hDc);
        const CSelectObject bitmap(source.Get(), m_pBits->GetBitmap());
        const int iWidth = GetRectWidth(rcTarget);
        const int iHeight = GetRectHeight(rcTarget);
        if (iWidth == m_size.cx && iHeight == m_size.cy)
        {
            BitBlt(hDc, rcTarget.left, rcTarget.top, iWidth, iHeight, source.Get(), 0, 0, SRCCOPY);
        }
        else
        {
            SetStretchBltMode(hDc, HALFTONE);
            SetBrushOrgEx(hDc, 0, 0, nullptr); // the halftone mode requires it
            StretchBlt(hDc, rcTarget.left, rcTarget.top, iWidth, iHeight, source.Get(), 0, 0, m_size.cx, m_size.cy,
                       SRCCOPY);
        }
    }
    if (bFrame)
    {
        FrameInside(hDc, rcTarget);
    }
}

bool CPicture::Draw(HDC hDc, bool bCentred, bool bFrame) const
{
    if (!CanDraw(hDc))
    {
        return false;
    }
    RECT rcTarget{0, 0, m_size.cx, m_size.cy};
    MoveRect(&rcTarget, m_rcDrawing.left, m_rcDrawing.top);
    if (bCentred)
    {
        MoveRect(&rcTarget, (GetRectWidth(m_rcDrawing) - m_size.cx) / 2, (GetRectHeight(m_rcDrawing) - m_size.cy) / 2);
    }
    const int iSaved = SaveDC(hDc);
    IntersectClipRect(hDc, m_rcDrawing.left, m_rcDrawing.top, m_rcDrawing.right, m_rcDrawing.bottom);
    DrawScaled(hDc, rcTarget, bFrame);
    RestoreDC(hDc, iSaved);
    return true;
}

bool CPicture::DrawFitted(HDC hDc, bool bCentred, bool bFrame) const
{
    if (!CanDraw(hDc))
    {
        return false;
    }
    const double dScale = std::min(static_cast<double>(GetRectWidth(m_rcDrawing)) / m_size.cx,
                                   static_cast<double>(GetRectHeight(m_rcDrawing)) / m_size.cy);
    const int iWidth = std::max(1, static_cast<int>(m_size.cx * dScale));
    const int iHeight = std::max(1, static_cast<int>(m_size.cy * dScale));
    RECT rcTarget{0, 0, iWidth, iHeight};
    MoveRect(&rcTarget, m_rcDrawing.left, m_rcDrawing.top);
    if (bCentred)
    {
        MoveRect(&rcTarget, (GetRectWidth(m_rcDrawing) - iWidth) / 2, (GetRectHeight(m_rcDrawing) - iHeight) / 2);
    }
    const int iSaved = SaveDC(hDc);
    DrawScaled(hDc, rcTarget, bFrame);
    RestoreDC(hDc, iSaved);
    return true;
}

bool CPicture::DrawStretched(HDC hDc, bool bFrame) const
{
    if (!CanDraw(hDc))
    {
        return false;
    }
    const int iSaved = SaveDC(hDc);
    DrawScaled(hDc, m_rcDrawing, bFrame);
    RestoreDC(hDc, iSaved);
    return true;
}

bool CPicture::DrawTiled(HDC hDc, bool bFrame) const
{
    if (!CanDraw(hDc))
    {
        return false;
    }
    RECT rcClip{};
    RECT rcVisible = m_rcDrawing;
    if (GetClipBox(hDc, &rcClip) != ERROR)
    {
        IntersectRect(&rcVisible, &rcClip, &m_rcDrawing);
    }
    if (IsRectEmpty_Plain(rcVisible))
    {
        return true; // no part of it is visible
    }
    if (m_bSolid)
    {
        FillColour(hDc, rcVisible, m_crSolid);
    }
    else
    {
        BlitTiles(hDc, m_rcDrawing, rcVisible, *m_pBits);
    }
    if (bFrame)
    {
        FrameInside(hDc, m_rcDrawing);
    }
    return true;
}

bool CPicture::DrawTiled_Direct2D(ID2D1HwndRenderTarget* pTarget) const
{
    if (pTarget == nullptr || IsEmpty() || IsRectEmpty_Plain(m_rcDrawing))
    {
        return false;
    }
    if (!m_pDevice)
    {
        m_pDevice = std::make_unique<CPictureDevice>();
    }
    const HRESULT hr = m_bSolid ? m_pDevice->FillSolid(pTarget, m_rcDrawing, m_crSolid)
                                : m_pDevice->FillTiled(pTarget, m_rcDrawing, m_pBits->GetPixels(), m_size);
    if (FAILED(hr))
    {
        m_pDevice.reset();
    }
    return SUCCEEDED(hr);
}

void CPicture::ReleaseDirect2D() const
{
    m_pDevice.reset();
}

bool CPicture::DrawByMode(HDC hDc, EnumPicDrawMode eMode) const
{
    switch (eMode)
    {
    case EnumPicDrawMode::Plain:
        return Draw(hDc, true, false);
    case EnumPicDrawMode::Fitted:
        return DrawFitted(hDc, true, false);
    case EnumPicDrawMode::Stretched:
        return DrawStretched(hDc, false);
    case EnumPicDrawMode::Tiled:
        return DrawTiled(hDc, false);
    }
    return false;
}
