#include "classes/windows/CPicture.h"

#include "classes/windows/CPictureBits.h"
#include "classes/windows/CPictureDevice.h"
#include "classes/windows/Handles.h"
#include "classes/windows/RectHelpers.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace
{
constexpr COLORREF PixelToColour(std::uint32_t uPixel)
{
    constexpr int c_iByte = 8;
    constexpr std::uint32_t c_uByteMask = 0xFF;
    const std::uint32_t uRed = (uPixel >> (2 * c_iByte)) & c_uByteMask;
    const std::uint32_t uGreen = (uPixel >> c_iByte) & c_uByteMask;
    const std::uint32_t uBlue = uPixel & c_uByteMask;
    return (uBlue << (2 * c_iByte)) | (uGreen << c_iByte) | uRed;
}

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
        for (int x = FirstTile(rcDrawing.left, size.cx, rcVisible.left); x < rcVisible.right; x += size.cx)
        {
            const int iWidth = std::min<int>(size.cx, rcDrawing.right - x);
            const int iHeight = std::min<int>(size.cy, rcDrawing.bottom - y);
            BitBlt(hDc, x, y, iWidth, iHeight, source.Get(), 0, 0, SRCCOPY);
        }
}
} // namespace

CPicture::CPicture() = default;
CPicture::~CPicture() = default;
CPicture::CPicture(CPicture&& other) noexcept = default;
CPicture& CPicture::operator=(CPicture&& other) noexcept = default;

// The brush of a render target is not shared: each copy makes its own when it is drawn.
CPicture::CPicture(const CPicture& other)
    : m_pBits(other.m_pBits),
      m_size(other.m_size),
      m_crSolid(other.m_crSolid),
      m_bSolid(other.m_bSolid),
      m_rcDrawing(other.m_rcDrawing),
      m_bRectSet(other.m_bRectSet)
{
}

CPicture& CPicture::operator=(const CPicture& other)
{
    if (this != &other)
        *this = CPicture(other);
    return *this;
}

bool CPicture::CreatePictureFromColorref(HDC, int iWidth, int iHeight, COLORREF cr)
{
    const bool bSolidBefore = m_bSolid;
    m_pBits.reset();
    m_bSolid = iWidth > 0 && iHeight > 0;
    m_size = m_bSolid ? SIZE{iWidth, iHeight} : SIZE{};
    m_crSolid = m_bSolid ? cr : 0;
    if (!m_bSolid || !bSolidBefore)
        m_pDevice.reset(); // a solid brush may stay: it is given its colour at each use
    if (m_bSolid && !m_bRectSet)
        m_rcDrawing = {0, 0, iWidth, iHeight};
    return m_bSolid;
}

bool CPicture::LoadFromResource(HINSTANCE hInstance, int iId)
{
    const CBitmapHandle bitmap(
        static_cast<HBITMAP>(LoadImageW(hInstance, MAKEINTRESOURCEW(iId), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
    BITMAP info{};
    if (!bitmap || GetObjectW(bitmap.Get(), sizeof(info), &info) == 0)
        return false;
    std::unique_ptr<CPictureBits> pBits = CPictureBits::Create(info.bmWidth, info.bmHeight);
    if (!pBits)
        return false;
    {
        const CMemoryDc source(nullptr);
        const CMemoryDc target(nullptr);
        const CSelectObject from(source.Get(), bitmap.Get());
        const CSelectObject to(target.Get(), pBits->GetBitmap());
        BitBlt(target.Get(), 0, 0, info.bmWidth, info.bmHeight, source.Get(), 0, 0, SRCCOPY);
    }
    pBits->MakeOpaque();
    Adopt(std::move(pBits));
    return true;
}

bool CPicture::CreateFromPixels(int iWidth, int iHeight, const std::uint32_t* pPixels)
{
    std::unique_ptr<CPictureBits> pBits = pPixels != nullptr ? CPictureBits::Create(iWidth, iHeight) : nullptr;
    if (!pBits)
        return false;
    std::copy_n(pPixels, static_cast<std::size_t>(iWidth) * static_cast<std::size_t>(iHeight), pBits->GetPixels());
    pBits->MakeOpaque();
    Adopt(std::move(pBits));
    return true;
}

void CPicture::Adopt(std::shared_ptr<const CPictureBits> pBits)
{
    m_pDevice.reset();
    m_bSolid = false;
    m_crSolid = 0;
    m_size = pBits->GetSize();
    m_pBits = std::move(pBits);
    if (!m_bRectSet)
        m_rcDrawing = {0, 0, m_size.cx, m_size.cy};
}

void CPicture::Clear()
{
    *this = CPicture();
}

bool CPicture::IsEmpty() const
{
    return !m_bSolid && m_pBits == nullptr;
}

bool CPicture::IsSolid() const
{
    return m_bSolid;
}

SIZE CPicture::GetSize() const
{
    return m_size;
}

COLORREF CPicture::GetColour() const
{
    return m_crSolid;
}

COLORREF CPicture::GetPixelColour(int x, int y) const
{
    if (x < 0 || y < 0 || x >= m_size.cx || y >= m_size.cy)
        return CLR_INVALID;
    if (m_bSolid)
        return m_crSolid;
    const std::size_t uIndex =
        static_cast<std::size_t>(y) * static_cast<std::size_t>(m_size.cx) + static_cast<std::size_t>(x);
    return PixelToColour(m_pBits->GetPixels()[uIndex]);
}

void CPicture::SetDrawingRect(const RECT* pRect)
{
    m_rcDrawing = pRect != nullptr ? *pRect : RECT{};
    m_bRectSet = true;
}

bool CPicture::GetDrawingRect(RECT* pRect, bool bAtOrigin) const
{
    if (pRect == nullptr)
        return false;
    *pRect = m_rcDrawing;
    if (bAtOrigin)
        MoveRect(pRect, -m_rcDrawing.left, -m_rcDrawing.top);
    return !IsRectEmpty_Plain(m_rcDrawing);
}

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
            SetBrushOrgEx(hDc, 0, 0, nullptr); // the halftone mode asks for it
            StretchBlt(hDc, rcTarget.left, rcTarget.top, iWidth, iHeight, source.Get(), 0, 0, m_size.cx, m_size.cy,
                       SRCCOPY);
        }
    }
    if (bFrame)
        FrameInside(hDc, rcTarget);
}

bool CPicture::Draw(HDC hDc, bool bCentred, bool bFrame) const
{
    if (!CanDraw(hDc))
        return false;
    RECT rcTarget{0, 0, m_size.cx, m_size.cy};
    MoveRect(&rcTarget, m_rcDrawing.left, m_rcDrawing.top);
    if (bCentred)
        MoveRect(&rcTarget, (GetRectWidth(m_rcDrawing) - m_size.cx) / 2, (GetRectHeight(m_rcDrawing) - m_size.cy) / 2);
    const int iSaved = SaveDC(hDc);
    IntersectClipRect(hDc, m_rcDrawing.left, m_rcDrawing.top, m_rcDrawing.right, m_rcDrawing.bottom);
    DrawScaled(hDc, rcTarget, bFrame);
    RestoreDC(hDc, iSaved);
    return true;
}

bool CPicture::DrawFitted(HDC hDc, bool bCentred, bool bFrame) const
{
    if (!CanDraw(hDc))
        return false;
    const double dScale = std::min(static_cast<double>(GetRectWidth(m_rcDrawing)) / m_size.cx,
                                   static_cast<double>(GetRectHeight(m_rcDrawing)) / m_size.cy);
    const int iWidth = std::max(1, static_cast<int>(m_size.cx * dScale));
    const int iHeight = std::max(1, static_cast<int>(m_size.cy * dScale));
    RECT rcTarget{0, 0, iWidth, iHeight};
    MoveRect(&rcTarget, m_rcDrawing.left, m_rcDrawing.top);
    if (bCentred)
        MoveRect(&rcTarget, (GetRectWidth(m_rcDrawing) - iWidth) / 2, (GetRectHeight(m_rcDrawing) - iHeight) / 2);
    const int iSaved = SaveDC(hDc);
    DrawScaled(hDc, rcTarget, bFrame);
    RestoreDC(hDc, iSaved);
    return true;
}

bool CPicture::DrawStretched(HDC hDc, bool bFrame) const
{
    if (!CanDraw(hDc))
        return false;
    const int iSaved = SaveDC(hDc);
    DrawScaled(hDc, m_rcDrawing, bFrame);
    RestoreDC(hDc, iSaved);
    return true;
}

bool CPicture::DrawTiled(HDC hDc, bool bFrame) const
{
    if (!CanDraw(hDc))
        return false;
    RECT rcClip{};
    RECT rcVisible = m_rcDrawing;
    if (GetClipBox(hDc, &rcClip) != ERROR)
        IntersectRect(&rcVisible, &rcClip, &m_rcDrawing);
    if (IsRectEmpty_Plain(rcVisible))
        return true; // nothing of it can be seen
    if (m_bSolid)
        FillColour(hDc, rcVisible, m_crSolid);
    else
        BlitTiles(hDc, m_rcDrawing, rcVisible, *m_pBits);
    if (bFrame)
        FrameInside(hDc, m_rcDrawing);
    return true;
}

bool CPicture::DrawTiled_Direct2D(ID2D1HwndRenderTarget* pTarget) const
{
    if (pTarget == nullptr || IsEmpty() || IsRectEmpty_Plain(m_rcDrawing))
        return false;
    if (!m_pDevice)
        m_pDevice = std::make_unique<CPictureDevice>();
    const HRESULT hr = m_bSolid ? m_pDevice->FillSolid(pTarget, m_rcDrawing, m_crSolid)
                                : m_pDevice->FillTiled(pTarget, m_rcDrawing, m_pBits->GetPixels(), m_size);
    if (FAILED(hr))
        m_pDevice.reset();
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
