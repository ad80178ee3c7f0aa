#include "simulation/SimulationKernels.h"

#include "classes/core/CCpuCapabilities.h"
#include "tests/simulation/CellForms.h"
#include "tests/simulation/CWorld.h"

#include <limits>
#include <random>
#include <string_view>

namespace
{

void CompareCell(const std::vector<CAtom>& atoms)
{
    std::vector<CAtom> expected = atoms;
    CRandom expectedRandom(77);
    const std::uint32_t expectedCollisions = CollideCell_Plainly(expected, expectedRandom);
    const float expectedDraw = expectedRandom.GetRandomNumber_Float(0, 1);
    for (const CSimulationKernels& kernels : GetAllKernels())
    {
        std::vector<CAtom> actual = atoms;
        CRandom random(77);
        ASSERT_EQ(CollideCell_ByKernel(actual, kernels, random), expectedCollisions) << kernels.name;
        ASSERT_EQ(HashAtoms(actual), HashAtoms(expected)) << kernels.name;
        ASSERT_EQ(random.GetRandomNumber_Float(0, 1), expectedDraw) << kernels.name;
    }
}

std::vector<CAtom> DrawCell(std::mt19937& draw, std::size_t count, float width, int maxRadius)
{
    const float corner = draw() % 2 == 0 ? 0.0F : 9000.0F;
    std::uniform_real_distribution<float> place(corner, corner + width);
    std::uniform_real_distribution<float> velocity(-2, 2);
    std::uniform_int_distribution<int> radius(1, maxRadius);
    std::vector<CAtom> atoms;
    for (std::size_t i = 0; i < count; ++i)
    {
        atoms.push_back(MakeAtom(place(draw), place(draw), velocity(draw), velocity(draw),
                                 static_cast<std::uint8_t>(radius(draw))));
    }
    return atoms;
}

TEST(SimulationKernels, TheBaselineIsAlwaysAvailableAndTheOnlySetIfForced)
{
    const auto kernels = GetKernels(CCpuCapabilities(true));
    ASSERT_EQ(kernels.size(), 1U);
    EXPECT_EQ(std::string_view(kernels[0].name), "baseline");
    EXPECT_EQ(std::string_view(GetAllKernels()[0].name), "baseline");
}

TEST(SimulationKernels, AProcessorHasTheKernelsOfItsInstructionSets)
{
    const CCpuCapabilities capabilities(false);
    const std::size_t expected = capabilities.HasAvx512() ? 3 : capabilities.HasAvx2() ? 2 : 1;
    EXPECT_EQ(GetKernels(capabilities).size(), expected);
}

// All numbers of atoms around the widths of the vectors, from hardly touching to all overlapping.
TEST(SimulationKernels, ACellOfAnySizeEqualsThePlainForm)
{
    std::mt19937 draw(1);
    for (std::size_t count = 0; count <= 70; ++count)
    {
        for (const float width : {5.0F, 40.0F, 100.0F, 300.0F})
        {
            for (const int maxRadius : {1, 5, 32, 255})
            {
                CompareCell(DrawCell(draw, count, width, maxRadius));
                ASSERT_FALSE(HasFatalFailure()) << count << " atoms within " << width << ", radius to " << maxRadius;
            }
        }
    }
}

// At densities between sparse and dense, atoms are often pushed further than the margin of the search.
TEST(SimulationKernels, CellsOfAnyDensityEqualThePlainForm)
{
    std::mt19937 draw(2);
    for (const std::size_t count : {100U, 200U, 333U, 500U, 777U, 1000U})
    {
        for (const int maxRadius : {1, 2, 3, 4, 5, 8, 12, 32})
        {
            CompareCell(DrawCell(draw, count, 110, maxRadius));
            ASSERT_FALSE(HasFatalFailure()) << count << " atoms of radius up to " << maxRadius;
        }
    }
}

TEST(SimulationKernels, AtomsAtOnePointEqualThePlainForm)
{
    for (const std::size_t count : {2U, 17U, 100U, 1000U})
    {
        std::mt19937 draw(3);
        std::vector<CAtom> atoms = DrawCell(draw, count, 100, 5);
        for (CAtom& atom : atoms)
        {
            atom.x = 250;
            atom.y = 125;
        }
        CompareCell(atoms);
        ASSERT_FALSE(HasFatalFailure()) << count << " atoms";
    }
}

// Edge cells hold the atoms outside the world, however far away. Near and far atoms must not affect each other.
TEST(SimulationKernels, AtomsFarApartOrNotFiniteInOneCellEqualThePlainForm)
{
    std::mt19937 draw(4);
    for (const std::size_t count : {5U, 40U, 120U})
    {
        std::vector<CAtom> atoms = DrawCell(draw, count, 60, 8);
        for (std::size_t i = 0; i < count; ++i)
        {
            const float places[] = {0,
                                    500,
                                    -2000,
                                    1e6F,
                                    -1e12F,
                                    std::numeric_limits<float>::infinity(),
                                    std::numeric_limits<float>::quiet_NaN()};
            atoms[i].x += places[draw() % std::size(places)];
            atoms[i].y += places[draw() % std::size(places)];
        }
        for (int round = 0; round < 3; ++round)
        {
            CompareCell(atoms);
            ASSERT_FALSE(HasFatalFailure()) << count << " atoms";
            std::swap(atoms.front(), atoms.back()); // points are relative to the first atom
        }
    }
}

} // namespace
