#include "tests/simulation/CWorld.h"

namespace
{

// A scene and its hash after some iterations. A hash changes only if a rule of the simulation changes, never with the
// compiler, the system or the instruction set.
struct CGolden
{
    CScene scene;
    int iterations;
    std::uint64_t hash;
};

void PrintTo(const CGolden& golden, std::ostream* pStream)
{
    *pStream << golden.scene.name;
}

std::uint64_t ComputeHash(const CGolden& golden, const CSimulationKernels& kernels, int threads)
{
    CWorld world(golden.scene);
    world.pKernels = &kernels;
    world.UseThreads(threads);
    for (int iteration = 0; iteration < golden.iterations; ++iteration)
    {
        world.Advance();
    }
    return HashAtoms(world.GetAtoms());
}

class GoldenHash : public testing::TestWithParam<CGolden>
{
};

TEST_P(GoldenHash, AFixedSceneHasTheSameHashOnEveryMachineAndInstructionSet)
{
    const CGolden& golden = GetParam();
    for (const CSimulationKernels& kernels : GetAllKernels())
    {
        EXPECT_EQ(ComputeHash(golden, kernels, 1), golden.hash) << kernels.name;
    }
}

TEST_P(GoldenHash, AFixedSceneHasTheSameHashWithEveryNumberOfThreads)
{
    for (const int threads : c_ThreadCounts)
    {
        EXPECT_EQ(ComputeHash(GetParam(), GetSimulationKernels(), threads), GetParam().hash) << threads << " threads";
    }
}

INSTANTIATE_TEST_SUITE_P(Scenes, GoldenHash,
                         testing::Values(CGolden{c_SceneDefault, 1000, 0x4FCB13273CE0D4DFU},
                                         CGolden{c_SceneFilled, 50, 0x9108E8D5C9BBDF08U},
                                         CGolden{c_SceneDense, 10, 0x9CDCBD98B432D00CU},
                                         CGolden{c_SceneBurst, 100, 0xE553C322ED37630DU},
                                         CGolden{c_SceneSparse, 10, 0xEC1015E295E2544BU}));

} // namespace
