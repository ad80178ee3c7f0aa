#include "classes/windows/drawing/CPictureBits.h"

#include <cstddef>

namespace
{
constexpr std::uint32_t c_uOpaque = 0xFF000000u;
constexpr WORD c_uBitsPerPixel = 32;
} // namespace

std::unique_ptr<CPictureBits> CPictureBits::Create(int iWidth, int iHeight)
{
    if (iWidth <= 0 || iHeight <= 0)
    {
        return nullptr;
    }
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = iWidth;
    info.bmiHeader.biHeight = -iHeight; // negative: the first row is the topmost
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = c_uBitsPerPixel;
    info.bmiHeader.biCompression = BI_RGB;

    std::unique_ptr<CPictureBits> pBits(new CPictureBits);
    void* pPixels = nullptr;
    pBits->m_Bitmap.Reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pPixels, nullptr, 0));
    if (!pBits->m_Bitmap || pPixels == nullptr)
    {
        return nullptr;
    }
    pBits->m_pPixels = static_cast<std::uint32_t*>(pPixels);
    pBits->m_size = {iWidth, iHeight};
    return pBits;
}

void CPictureBits::MakeOpaque()
{
    GdiFlush(); // GDI may still be drawing into the pixels
    const std::size_t uCount = static_cast<std::size_t>(m_size.cx) * static_cast<std::size_t>(m_size.cy);
    for (std::size_t i = 0; i < uCount; ++i)
    {
        m_pPixels[i] |= c_uOpaque;
    }
}
