#pragma once

#include "classes/core/CRandom.h"
#include "simulation/CAtoms.h"
#include "simulation/CCollisionGrid.h"
#include "simulation/CParallelIteration.h"
#include "simulation/Iteration.h"
#include "simulation/Population.h"
#include "simulation/SimulationKernels.h"
#include "tests/reference/CReferenceWorld.h"
#include "tests/reference/Scenes.h"
#include "tests/reference/WorldHash.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <span>
#include <vector>

// A world of the program, with everything that an iteration needs.
struct CWorld
{
    explicit CWorld(const CSize<int>& worldSize, std::uint64_t uSeed = 1) : size(worldSize), random(uSeed)
    {
        grid.Resize(size);
    }

    explicit CWorld(const CScene& scene) : CWorld(scene.world, scene.seed)
    {
        Populate(atoms, grid, size, scene.atoms, scene.minRadius, scene.maxRadius,
                 scene.start ? &*scene.start : nullptr, random);
    }

    // Replaces the atoms of the world by these.
    void SetAtoms(const std::vector<CAtom>& newAtoms)
    {
        atoms.Allocate(static_cast<std::int32_t>(newAtoms.size()));
        std::copy(newAtoms.begin(), newAtoms.end(), atoms.GetAtoms());
    }

    // From now on, iterations use that many threads, however small the world is.
    void UseThreads(int threads);

    std::uint32_t Advance()
    {
        return pParallel ? pParallel->Advance(atoms, grid, size, random, *pKernels)
                         : AdvanceOneIteration(atoms, grid, size, random, *pKernels);
    }

    std::span<const CAtom> GetAtoms() const { return {atoms.GetAtoms(), static_cast<std::size_t>(atoms.GetCount())}; }

    CSize<int> size;
    CRandom random;
    CAtoms atoms;
    CCollisionGrid grid;
    const CSimulationKernels* pKernels = &GetSimulationKernels();
    std::unique_ptr<CParallelIteration> pParallel;
};

// Numbers of threads to test with: fewer and more than the machine has processors.
inline constexpr std::array c_ThreadCounts = {1, 2, 3, 8};

// The largest radius of the atoms, 0 if there are none.
int GetLargestRadius(std::span<const CAtom> atoms);

// The kernels of all instruction sets that this processor has, slowest first.
std::span<const CSimulationKernels> GetAllKernels();

// An atom; its speed is computed from the velocity.
CAtom MakeAtom(float x, float y, float vx, float vy, std::uint8_t radius);

// The same scene in the plain form.
CReferenceWorld MakeReference(const CScene& scene);

// Success if all fields of all atoms and the velocity statistics have equal bits.
testing::AssertionResult IsSameWorld(const CWorld& world, const CReferenceWorld& reference);
