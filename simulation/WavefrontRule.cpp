#include "simulation/WavefrontRule.h"

#include "simulation/GridGeometry.h"

#include <algorithm>

namespace
{

// True if an atom may be listed by the cells on both sides of its own, along one axis. The grid decides that in floats,
// so one unit is added for their rounding.
bool IsListedOnBothSides(int largestRadius, int cells, int length)
{
    return cells > 2 && 2 * largestRadius + 1 >= length;
}

} // namespace

CWavefrontRule CWavefrontRule::Get(const CGridGeometry& geometry, int largestRadius)
{
    const bool bWide = IsListedOnBothSides(largestRadius, geometry.columns, geometry.cellWidth) ||
                       IsListedOnBothSides(largestRadius, geometry.rows, geometry.cellHeight);
    return {geometry.rows, geometry.columns, bWide ? 2 : 1};
}

int CWavefrontRule::GetNeeded(int column) const
{
    return std::min(column + 1 + lag, columns);
}

int CWavefrontRule::GetRunnable(int doneAbove) const
{
    return doneAbove == columns ? columns : std::max(0, doneAbove - lag);
}

int CWavefrontRule::GetMostRowsAtWork() const
{
    return std::min(rows, (columns + lag) / (lag + 1));
}
