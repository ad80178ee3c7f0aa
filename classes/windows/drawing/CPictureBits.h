#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>

#include "classes/windows/system/Handles.h"

// The pixels of a picture, made once and shared by all copies of it: a bitmap of 32 bits per pixel, rows from the top,
// 0xFFRRGGBB each, which GDI draws and Direct2D reads.
class CPictureBits
{
public:
    // Null if there is no memory or a length is not positive.
    static std::unique_ptr<CPictureBits> Create(int iWidth, int iHeight);

    HBITMAP GetBitmap() const { return m_Bitmap.Get(); }
    const std::uint32_t* GetPixels() const { return m_pPixels; }
    std::uint32_t* GetPixels() { return m_pPixels; }
    SIZE GetSize() const { return m_size; }

    // Sets the unused byte of each pixel, which GDI leaves at zero and Direct2D would take for transparency.
    void MakeOpaque();

private:
    CPictureBits() = default;

    CBitmapHandle m_Bitmap;
    std::uint32_t* m_pPixels = nullptr;
    SIZE m_size{};
};
