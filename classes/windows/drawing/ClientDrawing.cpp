#include "classes/windows/drawing/ClientDrawing.h"

#include "classes/windows/drawing/PaintBuffer.h"

void PaintClient(HWND hWnd, const ClientDrawing& draw)
{
    PAINTSTRUCT paint{};
    const HDC hDc = BeginPaint(hWnd, &paint);
    if (hDc != nullptr)
    {
        RECT rcClient{};
        GetClientRect(hWnd, &rcClient);
        const CPaintBuffer buffer(hDc, rcClient);
        draw(buffer.Get(), rcClient);
    }
    EndPaint(hWnd, &paint);
}

void PrintClient(HWND hWnd, WPARAM wParam, const ClientDrawing& draw)
{
    RECT rcClient{};
    GetClientRect(hWnd, &rcClient);
    draw(reinterpret_cast<HDC>(wParam), rcClient);
}
