#include "simulation/Lanes_Baseline.h"
// The kernels below are written for the Lanes above.
#include "simulation/MoveKernel.h"
#include "simulation/PairKernel.h"
#include "simulation/SimulationKernelSets.h"

std::uint32_t CollideCell_Baseline(const CCellList& atoms, const CCellList& next, CCellScratch& scratch,
                                   CRandom& random)
{
    return CollideCellAtoms(atoms, next, scratch, random);
}

int MoveAtomGroups_Baseline(CAtom* pAtoms, int count, const CSize<int>& world, const CGridGeometry& geometry,
                            std::uint32_t* pPlaces)
{
    return MoveAtomGroups(pAtoms, count, world, geometry, pPlaces);
}
