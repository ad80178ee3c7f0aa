#include "headless/console/HeadlessError.h"
#include "headless/files/CByteWriter.h"
#include "headless/report/RepeatCommand.h"
#include "headless/report/RunResults.h"
#include "headless/report/Summary.h"
#include "headless/states/Checkpoint.h"
#include "simulation/CAtoms.h"
#include "simulation/CCollisionGrid.h"
#include "simulation/Iteration.h"
#include "tests/fuzz/FuzzTarget.h"
#include "tests/headless/HeadlessTesting.h"

#include <sstream>
#include <string>

namespace
{

constexpr std::size_t c_uHashBytes = 8;
constexpr int c_iIterations = 3;

bool Read(const std::string& sBytes, CCheckpoint& checkpoint, CAtoms& atoms)
{
    try
    {
        std::istringstream stream(sBytes);
        checkpoint = ReadCheckpoint(stream, "fuzzed", atoms);
        return true;
    }
    catch (const CHeadlessError&)
    {
        return false;
    }
}

std::string Write(const CCheckpoint& checkpoint, const CAtoms& atoms)
{
    CTextSink sink;
    WriteCheckpoint(checkpoint, atoms, sink);
    return sink.GetText();
}

// No mutation would get past the checksum, nor past the length.
std::string Repair(std::string sBytes)
{
    constexpr std::size_t c_uLengthPlace = 12;
    if (sBytes.size() < c_uLengthPlace + 2 * c_uHashBytes)
    {
        return sBytes;
    }
    const auto put = [&sBytes](std::size_t uPlace, std::uint64_t uNumber) {
        for (std::size_t u = 0; u < c_uHashBytes; ++u)
        {
            sBytes[uPlace + u] = static_cast<char>(uNumber >> (8 * u));
        }
    };
    put(c_uLengthPlace, sBytes.size());
    const std::size_t uHashed = sBytes.size() - c_uHashBytes;
    put(uHashed, ComputeFnvHash(std::string_view(sBytes).substr(0, uHashed)));
    return sBytes;
}

// Continues the run. More atoms only make the fuzzer slow.
void UseCheckpoint(const CCheckpoint& checkpoint, CAtoms& atoms)
{
    CCollisionGrid grid;
    CRandom random(0);
    Require(random.SetState(checkpoint.seed, checkpoint.random), "an accepted state of the random numbers is refused");
    grid.Resize(checkpoint.settings.world);
    for (int iteration = 0; iteration < c_iIterations; ++iteration)
    {
        AdvanceOneIteration(atoms, grid, checkpoint.settings.world, random);
    }
    CRunResults results;
    results.start = checkpoint.start;
    const std::string sCommand = MakeRepeatCommand(checkpoint.settings, results, EnumShell::Posix);
    for (const EnumSummaryForm eForm : {EnumSummaryForm::Text, EnumSummaryForm::Json, EnumSummaryForm::Csv})
    {
        Require(!FormatSummary(MakeSummaryValues(checkpoint.settings, results, sCommand), eForm).empty(),
                "the summary of an accepted checkpoint is empty");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uCount)
{
    const std::string sBytes(reinterpret_cast<const char*>(pBytes), uCount);
    CCheckpoint checkpoint;
    CAtoms atoms;
    Read(sBytes, checkpoint, atoms);
    if (!Read(Repair(sBytes), checkpoint, atoms))
    {
        return 0;
    }
    const std::string sWritten = Write(checkpoint, atoms);
    CCheckpoint again;
    CAtoms atomsAgain;
    Require(Read(sWritten, again, atomsAgain), "a written checkpoint is refused");
    Require(Write(again, atomsAgain) == sWritten, "a checkpoint written again has other bytes");
    UseCheckpoint(checkpoint, atoms);
    return 0;
}
