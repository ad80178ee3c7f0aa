#include "classes/windows/drawing/ClientDrawing.h"

#include "classes/windows/drawing/OffScreenDrawing.h"

void PaintClient(HWND hWnd, const ClientDrawing& draw)
{
    PAINTSTRUCT paint{};
    const HDC hDc = BeginPaint(hWnd, &paint);
    if (hDc != nullptr)
    {
        RECT rcClient{};
        GetClientRect(hWnd, &rcClient);
        DrawOffScreenIfPossible(hDc, rcClient, [&](HDC hBuffer) { draw(hBuffer, rcClient); });
    }
    EndPaint(hWnd, &paint);
}

void PrintClient(HWND hWnd, WPARAM wParam, const ClientDrawing& draw)
{
    RECT rcClient{};
    GetClientRect(hWnd, &rcClient);
    draw(reinterpret_cast<HDC>(wParam), rcClient);
}
