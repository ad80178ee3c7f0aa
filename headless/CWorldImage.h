#pragma once

#include "classes/core/CColour.h"
#include "classes/core/CSize.h"

#include <cstdint>
#include <vector>

class CAtoms;
struct CSettings;

// A picture of the world, one pixel for each square unit: pixel (0, 0) is the square from (0, 0) to (1, 1).
class CWorldImage
{
public:
    // One colour everywhere. Throws std::bad_alloc.
    CWorldImage(const CSize<int>& size, ColourRef background);

    // A filled circle with smooth edges: a pixel is covered by the part of its width that lies inside, measured along
    // the line to the centre. What lies outside the picture is left out. The centre must be finite and not further
    // away from the picture than a few radii.
    void FillCircle(float x, float y, float radius, ColourRef colour);

    const CSize<int>& GetSize() const { return m_Size; }

    // Red, green and blue of each pixel, row by row from the top.
    const std::vector<std::uint8_t>& GetPixels() const { return m_Pixels; }

    ColourRef GetPixel(int x, int y) const;

private:
    void FillRow(int row, float x, float y, float radius, ColourRef colour);
    std::size_t GetOffset(int x, int y) const;

    CSize<int> m_Size;
    std::vector<std::uint8_t> m_Pixels;
};

// Draws every atom in array order, coloured by the mode, colours and factors of the settings.
CWorldImage DrawWorld(const CAtoms& atoms, const CSettings& settings);
