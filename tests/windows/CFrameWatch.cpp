#include "tests/windows/CFrameWatch.h"

namespace
{
struct CWatched
{
    HWND hWnd = nullptr;
    CPixels frame;
    int iFrames = 0;
    int iEllipses = 0;
    std::string sCalls;
    EnumEllipses eEllipses = EnumEllipses::Real;
    decltype(&BitBlt) pBitBlt = nullptr;
    decltype(&Ellipse) pEllipse = nullptr;
    decltype(&FillRect) pFillRect = nullptr;
    decltype(&GdiFlush) pGdiFlush = nullptr;
};

CWatched s_watched;

BOOL WINAPI WatchBitBlt(HDC hTo, int x, int y, int cx, int cy, HDC hFrom, int xFrom, int yFrom, DWORD dwOperation)
{
    if (s_watched.hWnd != nullptr && WindowFromDC(hTo) == s_watched.hWnd)
    {
        s_watched.hWnd = nullptr; // taking the picture copies too
        const HWND hWnd = WindowFromDC(hTo);
        s_watched.frame = CaptureContext(hFrom, xFrom, yFrom, cx, cy);
        s_watched.hWnd = hWnd;
        ++s_watched.iFrames;
        s_watched.sCalls += 'b';
    }
    return s_watched.pBitBlt(hTo, x, y, cx, cy, hFrom, xFrom, yFrom, dwOperation);
}

BOOL WINAPI WatchEllipse(HDC hDc, int iLeft, int iTop, int iRight, int iBottom)
{
    constexpr COLORREF c_crOther = 0x010101;
    ++s_watched.iEllipses;
    if (s_watched.eEllipses == EnumEllipses::TwoColours)
    {
        const COLORREF cr = GetDCBrushColor(hDc);
        SetDCBrushColor(hDc, cr ^ c_crOther);
        const BOOL bDrawn = s_watched.pEllipse(hDc, iLeft, iTop, iRight, iBottom);
        SetDCBrushColor(hDc, cr);
        return bDrawn;
    }
    const bool bNarrow = s_watched.eEllipses == EnumEllipses::DependOnPosition && iLeft % 2 == 0;
    return s_watched.pEllipse(hDc, iLeft, iTop, bNarrow ? iRight - 1 : iRight, iBottom);
}

int WINAPI WatchFillRect(HDC hDc, const RECT* pRect, HBRUSH hBrush)
{
    s_watched.sCalls += 'f';
    return s_watched.pFillRect(hDc, pRect, hBrush);
}

BOOL WINAPI WatchGdiFlush()
{
    s_watched.sCalls += 'g';
    return s_watched.pGdiFlush();
}
} // namespace

CFrameWatch::CFrameWatch(HWND hWnd)
    : m_BitBlt("BitBlt", WatchBitBlt),
      m_Ellipse("Ellipse", WatchEllipse),
      m_FillRect("FillRect", WatchFillRect),
      m_GdiFlush("GdiFlush", WatchGdiFlush)
{
    s_watched = CWatched();
    s_watched.pBitBlt = m_BitBlt.GetOriginal<decltype(BitBlt)>();
    s_watched.pEllipse = m_Ellipse.GetOriginal<decltype(Ellipse)>();
    s_watched.pFillRect = m_FillRect.GetOriginal<decltype(FillRect)>();
    s_watched.pGdiFlush = m_GdiFlush.GetOriginal<decltype(GdiFlush)>();
    s_watched.hWnd = hWnd;
}

CFrameWatch::~CFrameWatch() = default;

const CPixels& CFrameWatch::GetFrame() const
{
    return s_watched.frame;
}

int CFrameWatch::GetFrames() const
{
    return s_watched.iFrames;
}

int CFrameWatch::GetEllipses() const
{
    return s_watched.iEllipses;
}

const std::string& CFrameWatch::GetCalls() const
{
    return s_watched.sCalls;
}

void CFrameWatch::Forget()
{
    s_watched.frame = CPixels();
    s_watched.iFrames = 0;
    s_watched.iEllipses = 0;
    s_watched.sCalls.clear();
}

void SetEllipses(EnumEllipses eEllipses)
{
    s_watched.eEllipses = eEllipses;
}
