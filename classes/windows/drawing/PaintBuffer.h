#pragma once

#include <windows.h>

#include "classes/windows/system/Handles.h"

// Draws a rectangle of a window off-screen and copies it in one go when the scope ends, so that nothing half drawn is
// ever seen. Drawing uses the window's own coordinates. Without memory for the buffer it draws straight to the target.
class CPaintBuffer
{
public:
    CPaintBuffer(HDC hTarget, const RECT& rc);
    CPaintBuffer(const CPaintBuffer&) = delete;
    CPaintBuffer& operator=(const CPaintBuffer&) = delete;
    ~CPaintBuffer();

    HDC Get() const { return m_hOld != nullptr ? m_Memory.Get() : m_hTarget; }

private:
    HDC m_hTarget;
    RECT m_rc;
    CBitmapHandle m_Bitmap;
    CMemoryDc m_Memory;
    HGDIOBJ m_hOld = nullptr;
};
