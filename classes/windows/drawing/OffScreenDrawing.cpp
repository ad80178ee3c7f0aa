#include "classes/windows/drawing/OffScreenDrawing.h"

#include "classes/windows/system/Handles.h"
#include "classes/windows/system/RectHelpers.h"

bool DrawOffScreen(HDC hTarget, const RECT& rc, const OffScreenDrawing& draw)
{
    if (hTarget == nullptr || IsRectEmpty_Plain(rc))
    {
        return false;
    }
    const CMemoryDc memory(hTarget);
    if (!memory)
    {
        return false;
    }
    const int iWidth = GetRectWidth(rc);
    const int iHeight = GetRectHeight(rc);
    const CBitmapHandle bitmap(CreateCompatibleBitmap(hTarget, iWidth, iHeight));
    if (!bitmap)
    {
        return false;
    }
    const CSelectObject selected(memory.Get(), bitmap.Get());
    SetViewportOrgEx(memory.Get(), -rc.left, -rc.top, nullptr);
    draw(memory.Get());
    BitBlt(hTarget, rc.left, rc.top, iWidth, iHeight, memory.Get(), rc.left, rc.top, SRCCOPY);
    return true;
}

void DrawOffScreenIfPossible(HDC hTarget, const RECT& rc, const OffScreenDrawing& draw)
{
    if (!DrawOffScreen(hTarget, rc, draw))
    {
        draw(hTarget);
    }
}
