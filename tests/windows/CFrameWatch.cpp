#include "tests/windows/CFrameWatch.h"

#include <array>

namespace
{
constexpr int c_iMaxWidth = 400;
constexpr int c_iMaxHeight = 300;

struct CWatched
{
    HWND hWnd = nullptr;
    HDC hKept = nullptr;
    int iWidth = 0; // of the last frame
    int iHeight = 0;
    int iFrames = 0;
    int iEllipses = 0;
    std::array<char, 3> lastCalls{};
    EnumEllipses eEllipses = EnumEllipses::Real;
    decltype(&BitBlt) pBitBlt = nullptr;
    decltype(&Ellipse) pEllipse = nullptr;
    decltype(&FillRect) pFillRect = nullptr;
    decltype(&GdiFlush) pGdiFlush = nullptr;
};

CWatched s_watched;

void NoteCall(char chCall)
{
    s_watched.lastCalls = {s_watched.lastCalls[1], s_watched.lastCalls[2], chCall};
}

BOOL WINAPI WatchBitBlt(HDC hTo, int x, int y, int cx, int cy, HDC hFrom, int xFrom, int yFrom, DWORD dwOperation)
{
    if (s_watched.hWnd != nullptr && WindowFromDC(hTo) == s_watched.hWnd)
    {
        s_watched.pBitBlt(s_watched.hKept, 0, 0, cx, cy, hFrom, xFrom, yFrom, SRCCOPY);
        s_watched.iWidth = cx;
        s_watched.iHeight = cy;
        ++s_watched.iFrames;
        NoteCall('b');
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
    NoteCall('f');
    return s_watched.pFillRect(hDc, pRect, hBrush);
}

BOOL WINAPI WatchGdiFlush()
{
    NoteCall('g');
    return s_watched.pGdiFlush();
}
} // namespace

CFrameWatch::CFrameWatch(HWND hWnd)
    : m_Kept(nullptr),
      m_KeptBitmap(CreateCompatibleBitmap(CWindowDc(nullptr).Get(), c_iMaxWidth, c_iMaxHeight)),
      m_KeptSelected(m_Kept.Get(), m_KeptBitmap.Get()),
      m_BitBlt("BitBlt", WatchBitBlt),
      m_Ellipse("Ellipse", WatchEllipse),
      m_FillRect("FillRect", WatchFillRect),
      m_GdiFlush("GdiFlush", WatchGdiFlush)
{
    s_watched = CWatched();
    s_watched.hKept = m_Kept.Get();
    s_watched.pBitBlt = m_BitBlt.GetOriginal<decltype(BitBlt)>();
    s_watched.pEllipse = m_Ellipse.GetOriginal<decltype(Ellipse)>();
    s_watched.pFillRect = m_FillRect.GetOriginal<decltype(FillRect)>();
    s_watched.pGdiFlush = m_GdiFlush.GetOriginal<decltype(GdiFlush)>();
    s_watched.hWnd = hWnd;
}

CFrameWatch::~CFrameWatch() = default;

CPixels CFrameWatch::GetFrame() const
{
    return CaptureContext(m_Kept.Get(), 0, 0, s_watched.iWidth, s_watched.iHeight);
}

int CFrameWatch::GetFrames() const
{
    return s_watched.iFrames;
}

int CFrameWatch::GetEllipses() const
{
    return s_watched.iEllipses;
}

std::string CFrameWatch::GetLastCalls() const
{
    return {s_watched.lastCalls.begin(), s_watched.lastCalls.end()};
}

void CFrameWatch::Forget()
{
    PatBlt(m_Kept.Get(), 0, 0, c_iMaxWidth, c_iMaxHeight, BLACKNESS);
    s_watched.iFrames = 0;
    s_watched.iEllipses = 0;
    s_watched.lastCalls = {};
}

void SetEllipses(EnumEllipses eEllipses)
{
    s_watched.eEllipses = eEllipses;
}
