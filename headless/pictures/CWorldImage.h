#pragma once

#include "classes/core/CColour.h"
#include "classes/core/CSize.h"

#include <cstdint>
#include <utility>
#include <vector>

class CAtoms;
struct CSettings;

// A picture of the world, one pixel for each square unit: pixel (0, 0) is the square from (0, 0) to (1, 1).
class CWorldImage
{
public:
    // A picture of one colour. Throws std::bad_alloc.
    CWorldImage(const CSize<int>& size, ColourRef background);

    // A picture of these pixels, see GetPixels.
    CWorldImage(const CSize<int>& size, std::vector<std::uint8_t> pixels) : m_Size(size), m_Pixels(std::move(pixels)) {}

    // Draws a filled circle with anti-aliased edges: the coverage of a pixel is the part of its width inside the
    // circle, measured along the line to the centre. The circle is clipped to the picture. The centre must be finite
    // and within a few radii of the picture.
    void FillCircle(float x, float y, float radius, ColourRef colour);

    const CSize<int>& GetSize() const { return m_Size; }

    // Red, green and blue of each pixel, row by row from the top.
    const std::vector<std::uint8_t>& GetPixels() const { return m_Pixels; }

private:
    void FillRow(int row, float x, float y, float radius, ColourRef colour);
    std::size_t GetOffset(int x, int y) const;

    CSize<int> m_Size;
    std::vector<std::uint8_t> m_Pixels;
};

// Draws every atom in array order, coloured by the mode, colours and factors of the settings.
CWorldImage DrawWorld(const CAtoms& atoms, const CSettings& settings);
