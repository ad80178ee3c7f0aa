#pragma once

#include "classes/core/CRandom.h"
#include "classes/core/CSize.h"
#include "simulation/CAtoms.h"
#include "simulation/CCollisionGrid.h"
#include "simulation/CIterationRunner.h"
#include "simulation/Iteration.h"
#include "simulation/Population.h"
#include "tests/reference/Scenes.h"

// A scene in the fast form of the program.
struct CBenchmarkWorld
{
    static constexpr int c_iSettlingIterations = 20;

    explicit CBenchmarkWorld(const CScene& scene, int threads = 1)
        : size(scene.world), random(scene.seed), runner(threads)
    {
        Populate(atoms, grid, size, scene.atoms, scene.minRadius, scene.maxRadius, nullptr, random);
    }

    // Runs the first iterations, which remove the overlaps of the random start positions. They handle many times as
    // many collisions as later iterations.
    void Settle()
    {
        for (int iteration = 0; iteration < c_iSettlingIterations; ++iteration)
        {
            Advance();
        }
    }

    std::uint32_t Advance() { return runner.Advance(atoms, grid, size, random); }

    CSize<int> size;
    CRandom random;
    CAtoms atoms;
    CCollisionGrid grid;
    CIterationRunner runner;
};
