#pragma once

#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <vector>

// A copy of a part of the screen.
class CScreenPicture
{
public:
    // Copies a rectangle in screen coordinates, clipped to the screen. Throws std::runtime_error if it lies outside.
    explicit CScreenPicture(RECT rcPart);

    bool operator==(const CScreenPicture&) const = default;

    int GetWidth() const { return m_iWidth; }
    int GetHeight() const { return m_iHeight; }
    // The colour of a pixel, relative to the upper left corner.
    COLORREF GetPixel(int iX, int iY) const;
    // A palette makes the file small. The window has hardly more colours than fit into one. Throws std::runtime_error
    // if the file cannot be written.
    void SavePng(const std::filesystem::path& file) const;

private:
    // The 256 most frequent colours, as 0xFFRRGGBB.
    std::vector<std::uint32_t> FindPalette() const;

    int m_iWidth = 0;
    int m_iHeight = 0;
    std::vector<std::uint32_t> m_aPixels; // 0x00RRGGBB, rows from top to bottom
};
