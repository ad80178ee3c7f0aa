#pragma once

#include "classes/core/CSize.h"

#include <array>
#include <cstddef>
#include <cstdint>

// The eight neighbours of a cell, clockwise from north (north is up: the row before). Each is a bit of a place.
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

// Cells that a place can name: it keeps eight of its 32 bits for the neighbours.
constexpr std::uint32_t c_uMaxCells = 1U << (32 - c_iNeighbourCount);

// Rows, columns and cell sizes of a grid over a world, and the rule that says which cells an atom is entered into.
struct CGridGeometry
{
    int rows{};
    int columns{};
    int cellWidth{};                                     // world units
    int cellHeight{};                                    // world units
    std::array<int, c_iNeighbourCount> neighbourSteps{}; // from a cell's index to that of its neighbour

    // columns = ceil(width / 100), cell width = ceil(width / columns), likewise rows; at least one of each and at
    // least one unit wide. The last column may stick out of the world by less than a unit per column. Throws
    // std::length_error for more than c_uMaxCells cells.
    static CGridGeometry ForWorld(const CSize<int>& world);

    std::size_t GetCellCount() const { return static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns); }

    // Where an atom at (x, y) with that radius goes, packed: the index of the cell that holds its centre above the
    // lowest eight bits, and in those one bit per EnumNeighbour that its circle reaches into. Touching counts; a
    // diagonal neighbour needs the shared corner within or on the circle. Outside the world the nearest edge cell
    // holds it, and what is no number goes to cell 0.
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

// The row of y, or the column of x: position / length rounded down and limited to 0..count - 1. The limits are applied
// before the float becomes an integer, since a float can be far outside an integer's range; what is no number gives 0.
// Rounding down is what the conversion does, as only positions from 0 on come to it.
inline int GetCellNumber(float position, int length, int count)
{
    const float number = position / static_cast<float>(length);
    if (!(number >= 0))
    {
        return 0;
    }
    return number >= static_cast<float>(count - 1) ? count - 1 : static_cast<int>(number);
}
