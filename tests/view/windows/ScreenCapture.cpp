#include "tests/view/windows/ScreenCapture.h"

#include "classes/windows/system/Handles.h"

COLORREF CPixels::GetColour(int x, int y) const
{
    constexpr unsigned c_uByte = 8;
    constexpr std::uint32_t c_uMask = 0xFF;
    const std::uint32_t uPixel =
        pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(iWidth) + static_cast<std::size_t>(x)];
    return RGB((uPixel >> (2 * c_uByte)) & c_uMask, (uPixel >> c_uByte) & c_uMask, uPixel & c_uMask);
}

RECT GetClientAreaOnScreen(HWND hWnd)
{
    RECT rc{};
    GetClientRect(hWnd, &rc);
    MapWindowPoints(hWnd, nullptr, reinterpret_cast<POINT*>(&rc), 2);
    return rc;
}

CPixels CaptureClientArea(HWND hWnd)
{
    const RECT rc = GetClientAreaOnScreen(hWnd);
    const CWindowDc screen(nullptr);
    return CaptureContext(screen.Get(), rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top);
}

CPixels CaptureUntil(HWND hWnd, const std::function<void()>& draw, const std::function<bool(const CPixels&)>& accept)
{
    constexpr int c_iAttempts = 60;
    constexpr DWORD c_dwPause = 50; // milliseconds
    CPixels picture;
    for (int i = 0; i < c_iAttempts; ++i)
    {
        for (MSG msg{}; PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE);)
        {
            DispatchMessageW(&msg);
        }
        draw();
        GdiFlush();
        picture = CaptureClientArea(hWnd);
        if (accept(picture))
        {
            break;
        }
        Sleep(c_dwPause);
    }
    return picture;
}

CPixels CaptureContext(HDC hDc, int iX, int iY, int iWidth, int iHeight)
{
    constexpr WORD c_uBits = 32;
    CPixels result{iWidth, iHeight, {}};
    result.pixels.resize(static_cast<std::size_t>(iWidth) * static_cast<std::size_t>(iHeight));
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = iWidth;
    info.bmiHeader.biHeight = -iHeight; // rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = c_uBits;
    info.bmiHeader.biCompression = BI_RGB;
    const CMemoryDc memory(hDc);
    const CBitmapHandle bitmap(CreateCompatibleBitmap(hDc, iWidth, iHeight));
    {
        const CSelectObject selected(memory.Get(), bitmap.Get());
        BitBlt(memory.Get(), 0, 0, iWidth, iHeight, hDc, iX, iY, SRCCOPY);
    }
    GetDIBits(memory.Get(), bitmap.Get(), 0, static_cast<UINT>(iHeight), result.pixels.data(), &info, DIB_RGB_COLORS);
    constexpr std::uint32_t c_uColourMask = 0x00FFFFFF;
    for (std::uint32_t& uPixel : result.pixels)
    {
        uPixel &= c_uColourMask;
    }
    return result;
}
