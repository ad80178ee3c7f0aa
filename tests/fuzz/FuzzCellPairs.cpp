#include "classes/core/CCpuCapabilities.h"
#include "classes/core/CPoint.h"
#include "simulation/SimulationKernels.h"
#include "tests/fuzz/CFuzzInput.h"
#include "tests/fuzz/FuzzTarget.h"
#include "tests/reference/WorldHash.h"
#include "tests/simulation/CellForms.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace
{

// More atoms only make the fuzzer slow: these are enough for dense and sparse cells, and for every width of a vector.
constexpr std::size_t c_uMostAtoms = 400;

// Speeds whose squares do not overflow, in world units per iteration.
constexpr int c_iMostSpeed = 1000;

constexpr int c_iMostRadius = 255;

// Atoms that belong together.
struct CGroup
{
    // How the atoms are placed between the first point and the second: 0 at random in the rectangle, 1 in a row at
    // equal distances, 2 at the one and the other by turns, and else all at the first.
    int shape;
    int count;
    float x; // of the first point, world units
    float y;
    float width; // from the first point to the second
    float height;
    int minRadius;
    int maxRadius;
    int speed;
};

// Any float, also infinities and NaN.
float TakeFloat(CFuzzInput& input)
{
    constexpr double c_dLargest = 1e38;
    const double value = input.TakeDouble();
    return static_cast<float>(std::isfinite(value) ? std::clamp(value, -c_dLargest, c_dLargest) : value);
}

CGroup TakeGroup(CFuzzInput& input)
{
    CGroup group{};
    group.shape = input.TakeInt();
    group.count = input.TakeInt(0, static_cast<int>(c_uMostAtoms));
    group.x = TakeFloat(input);
    group.y = TakeFloat(input);
    group.width = TakeFloat(input);
    group.height = TakeFloat(input);
    group.minRadius = input.TakeInt(1, c_iMostRadius);
    group.maxRadius = input.TakeInt(1, c_iMostRadius);
    group.speed = input.TakeInt(0, c_iMostSpeed);
    return group;
}

// How far an atom is from the first point to the second, 0 to 1.
CPoint<float> DrawShare(const CGroup& group, int index, CRandom& random)
{
    constexpr int c_iRandom = 0;
    constexpr int c_iRow = 1;
    constexpr int c_iTwoPlaces = 2;
    if (group.shape == c_iRandom)
    {
        const float x = random.GetRandomNumber_Float(0, 1);
        return {x, random.GetRandomNumber_Float(0, 1)};
    }
    const float row = static_cast<float>(index) / static_cast<float>(group.count);
    const float share = group.shape == c_iRow ? row : static_cast<float>(group.shape == c_iTwoPlaces ? index % 2 : 0);
    return {share, share};
}

void AddAtoms(const CGroup& group, CRandom& random, std::vector<CAtom>& atoms)
{
    const auto speed = static_cast<float>(group.speed);
    for (int index = 0; index < group.count && atoms.size() < c_uMostAtoms; ++index)
    {
        const CPoint<float> share = DrawShare(group, index, random);
        CAtom atom;
        atom.x = group.x + share.x * group.width;
        atom.y = group.y + share.y * group.height;
        atom.vx = random.GetRandomNumber_Float(-speed, speed);
        atom.vy = random.GetRandomNumber_Float(-speed, speed);
        atom.speed = std::sqrt(atom.vx * atom.vx + atom.vy * atom.vy);
        atom.radius = random.GetRandomNumber_Uint8(static_cast<std::uint8_t>(group.minRadius),
                                                   static_cast<std::uint8_t>(group.maxRadius));
        atoms.push_back(atom);
    }
}

// Each instruction set of this machine gives the bits of the plain rule, and takes the same random numbers.
void CheckCell(const std::vector<CAtom>& atoms, std::uint64_t uSeed)
{
    std::vector<CAtom> expected = atoms;
    CRandom expectedRandom(uSeed);
    const std::uint32_t uCollisions = CollideCell_Plainly(expected, expectedRandom);
    const float expectedDraw = expectedRandom.GetRandomNumber_Float(0, 1);
    for (const CSimulationKernels& kernels : GetKernels(CCpuCapabilities(false)))
    {
        std::vector<CAtom> actual = atoms;
        CRandom random(uSeed);
        Require(CollideCell_ByKernel(actual, kernels, random) == uCollisions, "other pairs collide");
        Require(HashAtoms(actual) == HashAtoms(expected), "the atoms of a cell have other bits");
        Require(random.GetRandomNumber_Float(0, 1) == expectedDraw, "other random numbers are drawn");
    }
}

} // namespace

// A seed and the groups of one cell. The cell is tested three times, because the first round has pushed atoms onto
// others; each round begins with another atom, as points are counted from the first.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uCount)
{
    constexpr int c_iRounds = 3;
    CFuzzInput input(pBytes, uCount);
    const auto uSeed = static_cast<std::uint64_t>(input.TakeInt());
    CRandom random(uSeed);
    std::vector<CAtom> atoms;
    while (!input.IsAtEnd() && atoms.size() < c_uMostAtoms)
    {
        AddAtoms(TakeGroup(input), random, atoms);
    }
    for (int round = 0; round < c_iRounds; ++round)
    {
        CheckCell(atoms, uSeed + static_cast<std::uint64_t>(round));
        CollideCell_Plainly(atoms, random);
        std::rotate(atoms.begin(), atoms.begin() + static_cast<std::ptrdiff_t>(atoms.size() / 2), atoms.end());
    }
    return 0;
}
