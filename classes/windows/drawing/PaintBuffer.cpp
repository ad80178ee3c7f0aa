#include "classes/windows/drawing/PaintBuffer.h"

#include "classes/windows/system/RectHelpers.h"

CPaintBuffer::CPaintBuffer(HDC hTarget, const RECT& rc) : m_hTarget(hTarget), m_rc(rc), m_Memory(hTarget)
{
    if (!m_Memory || IsRectEmpty_Plain(rc))
    {
        return;
    }
    m_Bitmap.Reset(CreateCompatibleBitmap(hTarget, GetRectWidth(rc), GetRectHeight(rc)));
    if (!m_Bitmap)
    {
        return;
    }
    m_hOld = SelectObject(m_Memory.Get(), m_Bitmap.Get());
    SetViewportOrgEx(m_Memory.Get(), -rc.left, -rc.top, nullptr);
}

CPaintBuffer::~CPaintBuffer()
{
    if (m_hOld == nullptr)
    {
        return;
    }
    BitBlt(m_hTarget, m_rc.left, m_rc.top, GetRectWidth(m_rc), GetRectHeight(m_rc), m_Memory.Get(), m_rc.left, m_rc.top,
           SRCCOPY);
    SelectObject(m_Memory.Get(), m_hOld);
}
