#pragma once

#include "classes/core/CSize.h"

#include <array>
#include <cstddef>
#include <cstdint>

// The eight neighbours of a cell, clockwise from north (up: the previous row). Each is the number of a bit of a place.
enum class EnumNeighbour : std::uint8_t
{
    North,
    NorthEast,
    East,
    SouthEast,
    South,
    SouthWest,
    West,
    NorthWest,
    Count
};

constexpr int c_iNeighbourCount = static_cast<int>(EnumNeighbour::Count);

// The most cells of a grid: a place has 32 bits, of which eight are for the neighbours.
constexpr std::uint32_t c_uMaxCells = 1U << (32 - c_iNeighbourCount);

// Rows, columns and cell sizes of a grid over a world, and the rule for which cells an atom is entered into.
struct CGridGeometry
{
    int rows{};
    int columns{};
    int cellWidth{};                                     // world units
    int cellHeight{};                                    // world units
    std::array<int, c_iNeighbourCount> neighbourSteps{}; // difference between the indexes of neighbour and cell

    // columns = ceil(width / 100), cell width = ceil(width / columns), and likewise for rows; at least one column of at
    // least one unit. The last column may extend beyond the world by less than one unit per column. Throws
    // std::length_error for more than c_uMaxCells cells.
    static CGridGeometry ForWorld(const CSize<int>& world);

    std::size_t GetCellCount() const { return static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns); }

    // The place of an atom at (x, y) with that radius, in world units: the index of the cell that holds its centre,
    // shifted left by eight bits, and in the lowest eight bits one per EnumNeighbour that its circle reaches. Touching
    // an edge counts. A diagonal neighbour counts if the shared corner is within or on the circle. A centre outside the
    // world belongs to the nearest edge cell; a NaN coordinate gives row or column 0.
    std::uint32_t Locate(float x, float y, float radius) const;
};

constexpr std::uint32_t GetPlaceCell(std::uint32_t uPlace)
{
    return uPlace >> c_iNeighbourCount;
}

constexpr std::uint32_t GetPlaceNeighbours(std::uint32_t uPlace)
{
    return uPlace & ((1U << c_iNeighbourCount) - 1);
}

// The row of y or the column of x: position / length, rounded down and clamped to 0..count - 1. NaN gives 0. Clamps
// before converting, because a float can be far outside the range of an integer. The conversion truncates, which rounds
// down, as no negative number reaches it.
inline int GetCellNumber(float position, int length, int count)
{
    const float number = position / static_cast<float>(length);
    if (!(number >= 0))
    {
        return 0;
    }
    return number >= static_cast<float>(count - 1) ? count - 1 : static_cast<int>(number);
}
