#pragma once

#include "simulation/SimulationKernels.h"

// One function per kernel and instruction set; each lives in a source that is compiled for that set alone.
std::uint32_t CollideCell_Baseline(const CCellList& atoms, const CCellList& next, CCellScratch& scratch,
                                   CRandom& random);
int MoveAtomGroups_Baseline(CAtom* pAtoms, int count, const CSize<int>& world, const CGridGeometry& geometry,
                            std::uint32_t* pPlaces);
std::uint32_t CollideCell_Avx2(const CCellList& atoms, const CCellList& next, CCellScratch& scratch, CRandom& random);
int MoveAtomGroups_Avx2(CAtom* pAtoms, int count, const CSize<int>& world, const CGridGeometry& geometry,
                        std::uint32_t* pPlaces);
std::uint32_t CollideCell_Avx512(const CCellList& atoms, const CCellList& next, CCellScratch& scratch, CRandom& random);
int MoveAtomGroups_Avx512(CAtom* pAtoms, int count, const CSize<int>& world, const CGridGeometry& geometry,
                          std::uint32_t* pPlaces);

constexpr CSimulationKernels c_BaselineKernels = {"baseline", CollideCell_Baseline, MoveAtomGroups_Baseline};
constexpr CSimulationKernels c_Avx2Kernels = {"AVX2", CollideCell_Avx2, MoveAtomGroups_Avx2};
constexpr CSimulationKernels c_Avx512Kernels = {"AVX-512", CollideCell_Avx512, MoveAtomGroups_Avx512};
