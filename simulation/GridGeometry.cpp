#include "simulation/GridGeometry.h"

#include "simulation/SimulationConstants.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace
{

int CountCells(int worldLength)
{
    return std::max(1, static_cast<int>(std::ceil(worldLength / c_dNominalCellLength)));
}

int GetCellLength(int worldLength, int cells)
{
    return std::max(1, static_cast<int>(std::ceil(static_cast<double>(worldLength) / cells)));
}

constexpr std::uint32_t Bit(EnumNeighbour eNeighbour, bool bReached)
{
    return static_cast<std::uint32_t>(bReached) << static_cast<std::uint32_t>(eNeighbour);
}

float Square(float value)
{
    return value * value;
}

} // namespace

CGridGeometry CGridGeometry::ForWorld(const CSize<int>& world)
{
    CGridGeometry geometry;
    geometry.columns = CountCells(world.cx);
    geometry.rows = CountCells(world.cy);
    if (static_cast<std::uint64_t>(geometry.columns) * static_cast<std::uint64_t>(geometry.rows) > c_uMaxCells)
    {
        throw std::length_error("the world is too large for the collision grid");
    }
    geometry.cellWidth = GetCellLength(world.cx, geometry.columns);
    geometry.cellHeight = GetCellLength(world.cy, geometry.rows);

    const int columns = geometry.columns;
    geometry.neighbourSteps = {-columns, 1 - columns, 1, columns + 1, columns, columns - 1, -1, -columns - 1};
    return geometry;
}

std::uint32_t CGridGeometry::Locate(float x, float y, float radius) const
{
    const int row = GetCellNumber(y, cellHeight, rows);
    const int column = GetCellNumber(x, cellWidth, columns);
    const float top = static_cast<float>(row * cellHeight);
    const float bottom = static_cast<float>((row + 1) * cellHeight);
    const float left = static_cast<float>(column * cellWidth);
    const float right = static_cast<float>((column + 1) * cellWidth);
    const std::uint32_t uPlace = static_cast<std::uint32_t>(row * columns + column) << c_iNeighbourCount;

    const bool bNorth = top >= y - radius;
    const bool bEast = radius + x >= right;
    const bool bSouth = radius + y >= bottom;
    const bool bWest = left >= x - radius;
    if (!(bNorth || bEast || bSouth || bWest))
    {
        // Most atoms end here. A circle that reaches no edge reaches no corner.
        return uPlace;
    }

    const bool bHasNorth = row - 1 >= 0;
    const bool bHasEast = column + 1 <= columns - 1;
    const bool bHasSouth = row + 1 <= rows - 1;
    const bool bHasWest = column - 1 >= 0;
    const auto reachesCorner = [=](float cornerX, float cornerY) {
        return radius * radius >= Square(cornerX - x) + Square(cornerY - y);
    };
    return uPlace | Bit(EnumNeighbour::North, bHasNorth && bNorth) |
           Bit(EnumNeighbour::NorthEast, bHasNorth && bHasEast && reachesCorner(right, top)) |
           Bit(EnumNeighbour::East, bHasEast && bEast) |
           Bit(EnumNeighbour::SouthEast, bHasSouth && bHasEast && reachesCorner(right, bottom)) |
           Bit(EnumNeighbour::South, bHasSouth && bSouth) |
           Bit(EnumNeighbour::SouthWest, bHasSouth && bHasWest && reachesCorner(left, bottom)) |
           Bit(EnumNeighbour::West, bHasWest && bWest) |
           Bit(EnumNeighbour::NorthWest, bHasNorth && bHasWest && reachesCorner(left, top));
}
