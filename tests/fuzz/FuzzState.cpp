#include "classes/core/CRandom.h"
#include "headless/console/HeadlessError.h"
#include "headless/observed/OverlapStatistics.h"
#include "headless/options/RunSettings.h"
#include "headless/pictures/CWorldImage.h"
#include "headless/states/StateFile.h"
#include "headless/states/StateHash.h"
#include "simulation/CAtoms.h"
#include "simulation/CCollisionGrid.h"
#include "simulation/Iteration.h"
#include "tests/fuzz/FuzzTarget.h"
#include "tests/headless/HeadlessTesting.h"

#include <cmath>
#include <sstream>
#include <string>

namespace
{

constexpr CSize<int> c_World = {150, 120};
constexpr int c_iIterations = 3;

// More atoms only make the fuzzer slow: a few atoms reach the same code.
constexpr std::int32_t c_iMostSimulatedAtoms = 40;

bool Load(const std::string& sText, CAtoms& atoms)
{
    try
    {
        std::istringstream stream(sText);
        LoadState(stream, "fuzzed", atoms);
        return true;
    }
    catch (const CHeadlessError&)
    {
        return false;
    }
}

std::string Save(const CAtoms& atoms)
{
    CTextSink sink;
    SaveState(atoms, sink);
    return sink.GetText();
}

// Holds for every atom of an accepted state.
void CheckAtoms(const CAtoms& atoms)
{
    for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
    {
        const CAtom& atom = atoms[index];
        Require(std::isfinite(atom.x) && std::isfinite(atom.y), "an atom is nowhere");
        Require(std::isfinite(atom.vx) && std::isfinite(atom.vy), "an atom goes nowhere");
        Require(atom.speed == std::sqrt(atom.vx * atom.vx + atom.vy * atom.vy), "an atom has another speed");
        Require(atom.radius > 0, "an atom has no radius");
    }
}

// Everything the program does with a state that it has accepted.
void UseState(CAtoms& atoms)
{
    CCollisionGrid grid;
    CRandom random(1);
    grid.Resize(c_World);
    for (int iteration = 0; iteration < c_iIterations; ++iteration)
    {
        AdvanceOneIteration(atoms, grid, c_World, random);
    }
    CSettings settings;
    settings.world = c_World;
    settings.factors = {CFactor(L"1"), CFactor(L"1"), CFactor()};
    DrawWorld(atoms, settings);
    settings.eMode = EnumAtomColourMode::Speed;
    settings.factors = {CFactor(L"0.75"), CFactor(), CFactor(L"1.25")};
    DrawWorld(atoms, settings);
    ComputeOverlapStatistics(atoms, c_World, [](std::uint64_t) { return true; });
    CountAtomsOutside(atoms, c_World);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uCount)
{
    CAtoms atoms;
    if (!Load(std::string(reinterpret_cast<const char*>(pBytes), uCount), atoms))
    {
        return 0;
    }
    CheckAtoms(atoms);
    const std::string sSaved = Save(atoms);
    CAtoms again;
    Require(Load(sSaved, again), "a saved state is refused");
    Require(ComputeStateHash(atoms) == ComputeStateHash(again), "a saved state is another one");
    Require(Save(again) == sSaved, "a state saved again has other bytes");
    if (atoms.GetCount() <= c_iMostSimulatedAtoms)
    {
        UseState(atoms);
    }
    return 0;
}
