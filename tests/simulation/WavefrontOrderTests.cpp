#include "simulation/CDrawAtOnce.h"
#include "simulation/CellRows.h"
#include "simulation/IterationSteps.h"
#include "tests/simulation/CScriptedWavefront.h"
#include "tests/simulation/CWorld.h"

#include <atomic>
#include <random>
#include <thread>

// Every order in which the wavefront allows threads to handle the cells of a small grid gives the world of the plain
// order. A missing dependency is not left to chance: one of the orders has it.
namespace
{

// What the collisions of an iteration leave behind.
struct COutcome
{
    std::uint32_t collisions;
    std::uint64_t hash;
    float draw;

    bool operator==(const COutcome&) const = default;
};

// A world whose atoms are in their lists, before the collisions.
CWorld MakeWorld(const CSize<int>& size, const std::vector<CAtom>& atoms)
{
    CWorld world(size);
    world.SetAtoms(atoms);
    for (std::int32_t i = 0; i < world.atoms.GetCount(); ++i)
    {
        world.grid.Insert(world.atoms[i]);
    }
    world.grid.Fill();
    return world;
}

COutcome GetOutcome(CWorld& world, std::uint32_t uCollisions)
{
    return {uCollisions, HashAtoms(world.GetAtoms()), world.random.GetRandomNumber_Float(0, 1)};
}

COutcome CollideInScriptedOrder(const CSize<int>& size, const std::vector<CAtom>& atoms, CScriptedWavefront& wavefront)
{
    CWorld world = MakeWorld(size, atoms);
    std::atomic<std::uint32_t> uCollisions = 0;
    {
        std::vector<std::jthread> threads;
        for (int row = 0; row < world.grid.GetRows(); ++row)
        {
            threads.emplace_back(
                [&] { uCollisions += CollideRows(world.grid, wavefront, world.random, *world.pKernels); });
        }
        wavefront.RunAll();
    }
    return GetOutcome(world, uCollisions);
}

// Changes the last choice that has another option left, and drops those after it. False if there is none.
bool GoToNextOrder(std::vector<std::size_t>& choices, const std::vector<std::size_t>& options)
{
    choices.resize(options.size());
    while (!choices.empty() && choices.back() + 1 == options[choices.size() - 1])
    {
        choices.pop_back();
    }
    if (choices.empty())
    {
        return false;
    }
    ++choices.back();
    return true;
}

// Returns the number of orders.
int CompareAllOrders(const CSize<int>& size, const std::vector<CAtom>& atoms)
{
    CWorld plain = MakeWorld(size, atoms);
    const std::uint32_t uCollisions = CollideCells(plain.grid, plain.atoms.GetCount(), plain.random, *plain.pKernels);
    const COutcome expected = GetOutcome(plain, uCollisions);
    const CWavefrontRule rule = CWavefrontRule::Get(plain.grid.GetGeometry(), GetLargestRadius(atoms));
    std::vector<std::size_t> choices;
    for (int order = 1;; ++order)
    {
        CScriptedWavefront wavefront(rule, choices);
        const bool bSame = CollideInScriptedOrder(size, atoms, wavefront) == expected;
        EXPECT_TRUE(bSame) << "order " << order << " in " << size.cx << " x " << size.cy;
        if (!bSame || !GoToNextOrder(choices, wavefront.GetOptions()))
        {
            return order;
        }
    }
}

std::vector<CAtom> DrawAtoms(std::mt19937& draw, const CSize<int>& size, int count, int largestRadius)
{
    std::uniform_real_distribution<float> x(0, static_cast<float>(size.cx));
    std::uniform_real_distribution<float> y(0, static_cast<float>(size.cy));
    std::uniform_real_distribution<float> velocity(-2, 2);
    std::uniform_int_distribution<int> radius(1, largestRadius);
    std::vector<CAtom> atoms;
    for (int i = 0; i < count; ++i)
    {
        atoms.push_back(
            MakeAtom(x(draw), y(draw), velocity(draw), velocity(draw), static_cast<std::uint8_t>(radius(draw))));
    }
    return atoms;
}

constexpr CSize<int> c_Worlds[] = {{201, 201}, {300, 300}, {400, 300}, {250, 400}, {500, 200}, {90, 300}, {500, 300}};
constexpr int c_iUsualRadius = 32;
constexpr int c_iHugeRadius = 255; // that of a loaded state

TEST(WavefrontOrder, EveryAllowedOrderGivesTheWorldOfThePlainOrder)
{
    std::mt19937 draw(1);
    int orders = 0;
    for (const CSize<int>& size : c_Worlds)
    {
        orders += CompareAllOrders(size, DrawAtoms(draw, size, 150, c_iUsualRadius));
    }
    EXPECT_GT(orders, 100);
}

// An atom that is larger than a cell is listed by cells that do not touch each other.
TEST(WavefrontOrder, EveryAllowedOrderGivesTheSameWorldOfHugeAtoms)
{
    std::mt19937 draw(2);
    for (const CSize<int>& size : c_Worlds)
    {
        CompareAllOrders(size, DrawAtoms(draw, size, 40, c_iHugeRadius));
    }
}

// Two atoms at one point of each cell make the cell draw random numbers.
TEST(WavefrontOrder, EveryAllowedOrderDrawsTheRandomNumbersInTheOrderOfTheCells)
{
    std::mt19937 draw(3);
    for (const CSize<int>& size : c_Worlds)
    {
        std::vector<CAtom> atoms = DrawAtoms(draw, size, 60, c_iUsualRadius);
        const CWorld world(size);
        for (int cell = 0; cell < world.grid.GetCellCount(); ++cell)
        {
            const auto column = static_cast<float>(cell % world.grid.GetColumns());
            const auto row = static_cast<float>(cell / world.grid.GetColumns());
            const float x = (column + 0.5F) * static_cast<float>(world.grid.GetCellWidth());
            const float y = (row + 0.5F) * static_cast<float>(world.grid.GetCellHeight());
            atoms.insert(atoms.end(), 2, MakeAtom(x, y, 1, -1, 3));
        }
        CompareAllOrders(size, atoms);
    }
}

} // namespace
