#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <vector>

// Red, green and blue, 0 to 255.
using CPixel = std::array<std::uint8_t, 3>;

// A part of a picture in pixels from its upper left corner; right and bottom lie outside.
struct CPart
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

// The content of a PNG file.
class CPngPicture
{
public:
    // Throws std::runtime_error if the file cannot be read.
    explicit CPngPicture(const std::filesystem::path& file);

    int GetWidth() const { return m_iWidth; }
    int GetHeight() const { return m_iHeight; }
    // Throws std::out_of_range if there is no such pixel.
    const CPixel& GetPixel(int iX, int iY) const;

private:
    int m_iWidth = 0;
    int m_iHeight = 0;
    std::vector<CPixel> m_aPixels; // rows from top to bottom
};
