#include "headless/observed/WallBounces.h"

#include "simulation/CAtoms.h"

#include <cmath>
#include <numeric>

namespace
{

void AddBounce(CBouncesOfWalls& bounces, EnumWall eWall, float velocity)
{
    CWallBounces& wall = bounces[static_cast<std::size_t>(eWall)];
    ++wall.count;
    wall.impulse += 2 * static_cast<double>(std::fabs(velocity));
}

// Between the walls at 0 and at length. Single precision, like the move: other roundings would find other bounces.
void AddBouncesOfAxis(CBouncesOfWalls& bounces, EnumWall eLow, EnumWall eHigh, float length, float position,
                      float velocity, float r)
{
    const float moved = position + velocity;
    if (moved - r < 0)
    {
        AddBounce(bounces, eLow, velocity);
    }
    else if (length - (r + moved) < 0)
    {
        AddBounce(bounces, eHigh, velocity);
    }
}

} // namespace

void AddNextBounces(CBouncesOfWalls& bounces, const CAtoms& atoms, const CSize<int>& world)
{
    const auto width = static_cast<float>(world.cx);
    const auto height = static_cast<float>(world.cy);
    for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
    {
        const CAtom& atom = atoms[index];
        const auto r = static_cast<float>(atom.radius);
        AddBouncesOfAxis(bounces, EnumWall::Left, EnumWall::Right, width, atom.x, atom.vx, r);
        AddBouncesOfAxis(bounces, EnumWall::Top, EnumWall::Bottom, height, atom.y, atom.vy, r);
    }
}

double ComputePressure(const CBouncesOfWalls& bounces, const CSize<int>& world, std::uint64_t uIterations)
{
    const double impulse = std::accumulate(bounces.begin(), bounces.end(), 0.0,
                                           [](double sum, const CWallBounces& wall) { return sum + wall.impulse; });
    const double perimeter = 2.0 * (static_cast<double>(world.cx) + static_cast<double>(world.cy));
    return impulse / (perimeter * static_cast<double>(uIterations));
}
