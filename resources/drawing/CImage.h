#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// One pixel, not premultiplied.
struct CPixel
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 0;
};

// A picture in memory, rows from top to bottom.
class CImage
{
public:
    CImage(int iWidth, int iHeight)
        : m_iWidth(iWidth),
          m_iHeight(iHeight),
          m_aPixels(static_cast<std::size_t>(iWidth) * static_cast<std::size_t>(iHeight))
    {
    }

    int GetWidth() const { return m_iWidth; }
    int GetHeight() const { return m_iHeight; }
    CPixel& At(int iX, int iY) { return m_aPixels[Index(iX, iY)]; }
    const CPixel& At(int iX, int iY) const { return m_aPixels[Index(iX, iY)]; }

private:
    std::size_t Index(int iX, int iY) const
    {
        return static_cast<std::size_t>(iY) * static_cast<std::size_t>(m_iWidth) + static_cast<std::size_t>(iX);
    }

    int m_iWidth;
    int m_iHeight;
    std::vector<CPixel> m_aPixels;
};
