#include "tests/simulation/CellForms.h"

#include "simulation/CDrawAtOnce.h"
#include "simulation/CellScratch.h"
#include "tests/reference/CReferenceWorld.h"

#include <memory>
#include <vector>

std::uint32_t CollideCell_Plainly(std::span<CAtom> atoms, CRandom& random)
{
    std::uint32_t collisions = 0;
    for (std::size_t i = 0; i < atoms.size(); ++i)
    {
        for (std::size_t j = i + 1; j < atoms.size(); ++j)
        {
            CAtom& a = atoms[i];
            CAtom& b = atoms[j];
            const auto s = static_cast<float>(a.radius + b.radius);
            if ((a.y - b.y) * (a.y - b.y) + (a.x - b.x) * (a.x - b.x) <= s * s)
            {
                ReferenceCollision(a, b, random);
                ++collisions;
            }
        }
    }
    return collisions;
}

std::uint32_t CollideCell_ByKernel(std::span<CAtom> atoms, const CSimulationKernels& kernels, CRandom& random)
{
    std::vector<CAtom*> list;
    for (CAtom& atom : atoms)
    {
        list.push_back(&atom);
    }
    const auto pScratch = std::make_unique<CCellScratch>();
    CDrawAtOnce turn(random);
    return kernels.pCollideCell({list.data(), static_cast<int>(list.size())}, {nullptr, 0}, *pScratch, turn);
}
