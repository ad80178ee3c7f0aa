#include "tests/simulation/CWorld.h"

#include "classes/core/CCpuCapabilities.h"
#include "tests/simulation/SameAtom.h"

#include <cmath>

void CWorld::UseThreads(int threads)
{
    pParallel = threads == 1 ? nullptr
                             : std::make_unique<CParallelIteration>(
                                   threads - 1, CWavefrontRule::Get(grid.GetGeometry(), GetLargestRadius(GetAtoms())));
}

int GetLargestRadius(std::span<const CAtom> atoms)
{
    int largest = 0;
    for (const CAtom& atom : atoms)
    {
        largest = std::max<int>(largest, atom.radius);
    }
    return largest;
}

std::span<const CSimulationKernels> GetAllKernels()
{
    return GetKernels(CCpuCapabilities(false));
}

CAtom MakeAtom(float x, float y, float vx, float vy, std::uint8_t radius)
{
    CAtom atom;
    atom.x = x;
    atom.y = y;
    atom.vx = vx;
    atom.vy = vy;
    atom.speed = std::sqrt(vx * vx + vy * vy);
    atom.radius = radius;
    return atom;
}

CReferenceWorld MakeReference(const CScene& scene)
{
    CReferenceWorld reference(scene.world, scene.seed);
    reference.Populate(scene.atoms, scene.minRadius, scene.maxRadius, scene.start);
    return reference;
}

testing::AssertionResult IsSameWorld(const CWorld& world, const CReferenceWorld& reference)
{
    const std::span<const CAtom> atoms = world.GetAtoms();
    const std::vector<CAtom>& expected = reference.GetAtoms();
    if (atoms.size() != expected.size())
    {
        return testing::AssertionFailure() << atoms.size() << " atoms instead of " << expected.size();
    }
    for (std::size_t i = 0; i < expected.size(); ++i)
    {
        if (!IsSameAtom(atoms[i], expected[i]))
        {
            return testing::AssertionFailure() << "atom " << i << " is at " << atoms[i].x << ", " << atoms[i].y
                                               << " instead of " << expected[i].x << ", " << expected[i].y;
        }
    }
    const CVelocityStatistics& velocities = world.atoms.GetVelocities();
    if (!IsSameFloat(velocities.min, reference.GetMin()) || !IsSameFloat(velocities.max, reference.GetMax()) ||
        !IsSameFloat(velocities.tot, reference.GetTot()) || !IsSameFloat(velocities.avg, reference.GetAvg()))
    {
        return testing::AssertionFailure() << "the velocity statistics differ";
    }
    return testing::AssertionSuccess();
}
