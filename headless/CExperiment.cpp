#include "headless/CExperiment.h"

#include "headless/CNumberedPictures.h"
#include "headless/COutputFile.h"
#include "headless/CProgressBar.h"
#include "headless/CStreamSink.h"
#include "headless/CWorldImage.h"
#include "headless/HeadlessError.h"
#include "headless/OutputPlaces.h"
#include "headless/OverlapStatistics.h"
#include "headless/PngFile.h"
#include "headless/StateFile.h"
#include "headless/StateHash.h"
#include "headless/StateRescue.h"
#include "headless/StatsFile.h"
#include "simulation/Iteration.h"
#include "simulation/Population.h"

#include <algorithm>
#include <chrono>
#include <iostream>
#include <new>

namespace
{

constexpr const char* c_sStandardInputName = "standard input"; // in messages and in the summary

// Spreadsheets and readers of JSON keep whole numbers as 64-bit floats, which have so many bits for them.
constexpr std::uint64_t c_uDrawnSeedMask = (std::uint64_t{1} << 53U) - 1;

CRandom MakeRandom(const COptions& options)
{
    return CRandom(options.seed ? *options.seed : CRandom().GetSeed() & c_uDrawnSeedMask);
}

std::string DescribeStart(const COptions& options)
{
    if (options.loadState)
    {
        return *options.loadState == c_sStandardInput ? c_sStandardInputName : *options.loadState;
    }
    return options.startAt ? std::to_string(options.startAt->x) + "," + std::to_string(options.startAt->y) : "random";
}

void LoadAtoms(const std::string& sPath, CAtoms& atoms)
{
    if (sPath == c_sStandardInput)
    {
        LoadState(std::cin, c_sStandardInputName, atoms);
        return;
    }
    LoadStateFile(sPath, atoms);
}

// A run of a moment may be followed by a count of a moment.
constexpr std::chrono::seconds c_ShortRun{2};

} // namespace

std::chrono::steady_clock::duration GetOverlapTimeLimit(std::chrono::steady_clock::duration run)
{
    return std::max<std::chrono::steady_clock::duration>(run, c_ShortRun);
}

CExperiment::CExperiment(const COptions& options, const CConsole& console)
    : m_Options(options), m_Console(console), m_Settings(ResolveSettings(options)), m_Random(MakeRandom(options))
{
    CheckOutputPlaces(options);
    // Fail before hours of computing, not after them.
    for (const std::optional<std::string>& sPath : {options.saveState, options.stats, options.picture})
    {
        if (sPath && *sPath != c_sStandardOutput)
        {
            COutputFile::Check(*sPath);
        }
    }
    if (options.pictureEvery)
    {
        COutputFile::Check(GetNumberedName(*options.picture, options.iterations, options.iterations));
    }
}

void CExperiment::Run()
{
    Start();
    Iterate();
    SaveResults();
    CompleteResults();
    std::ostream& summary = IsStandardOutputTaken() ? m_Console.err : m_Console.out;
    summary << FormatSummary(m_Settings, m_Results) << std::flush;
    if (!summary)
    {
        throw CHeadlessError("the summary cannot be written");
    }
    if (!m_sWriteErrors.empty())
    {
        throw CHeadlessError(m_sWriteErrors);
    }
}

void CExperiment::Start()
{
    if (m_Options.loadState)
    {
        LoadAtoms(*m_Options.loadState, m_Atoms);
        m_Grid.Resize(m_Settings.world);
    }
    else
    {
        const CPoint<int>* const pStart = m_Options.startAt ? &*m_Options.startAt : nullptr;
        Populate(m_Atoms, m_Grid, m_Settings.world, m_Settings.atoms, m_Settings.minRadius, m_Settings.maxRadius,
                 pStart, m_Random);
    }
    m_Results.seed = m_Random.GetSeed();
    m_Results.start = DescribeStart(m_Options);
    m_Results.startSpeedSum = SumSpeeds(m_Atoms);
}

void CExperiment::Iterate()
{
    const std::unique_ptr<IByteSink> stats = m_Options.stats ? OpenOutput(*m_Options.stats) : nullptr;
    if (stats)
    {
        WriteStatsHeader(*stats);
    }
    {
        CProgressBar progress(GetProgressStream(), m_Options.iterations, "iterations");
        for (std::uint64_t uIteration = 1; uIteration <= m_Options.iterations; ++uIteration)
        {
            AdvanceOnce(uIteration, stats.get());
            progress.Update(uIteration);
        }
    }
    if (stats)
    {
        Try([&stats] { stats->Commit(); });
    }
}

void CExperiment::AdvanceOnce(std::uint64_t uIteration, IByteSink* pStats)
{
    if (m_Console.pInterrupted != nullptr && *m_Console.pInterrupted)
    {
        throw CHeadlessError("interrupted after " + std::to_string(m_Results.iterations) + " of " +
                             std::to_string(m_Options.iterations) + " iterations");
    }
    const auto start = std::chrono::steady_clock::now();
    const std::uint32_t uCollisions = AdvanceOneIteration(m_Atoms, m_Grid, m_Settings.world, m_Random);
    const std::chrono::nanoseconds duration = std::chrono::steady_clock::now() - start;
    m_Results.durations.Add(static_cast<std::uint64_t>(duration.count()));
    m_Results.collisions += uCollisions;
    m_Results.iterations = uIteration;
    if (pStats != nullptr)
    {
        WriteStatsRow(*pStats, uIteration, uCollisions, m_Atoms.GetVelocities());
    }
    if (m_Options.pictureEvery && uIteration % *m_Options.pictureEvery == 0)
    {
        DrawPicture(GetNumberedName(*m_Options.picture, uIteration, m_Options.iterations));
    }
}

void CExperiment::SaveResults()
{
    if (m_Options.saveState)
    {
        Try([this] { SaveStateAtEnd(*m_Options.saveState); });
    }
    if (m_Options.picture)
    {
        Try([this] { DrawPicture(*m_Options.picture); });
    }
}

void CExperiment::SaveStateAtEnd(const std::string& sPath) const
{
    try
    {
        const std::unique_ptr<IByteSink> file = OpenOutput(sPath);
        SaveState(m_Atoms, *file);
        file->Commit();
    }
    catch (const CWriteError& error)
    {
        // Who reads standard output may have read enough.
        if (sPath == c_sStandardOutput)
        {
            throw;
        }
        const std::string sElsewhere = SaveStateElsewhere(m_Atoms);
        throw CWriteError(error.what() + (sElsewhere.empty() ? "; no other place takes the state either"
                                                             : "; the state is in " + sElsewhere + " instead"));
    }
}

void CExperiment::Try(const std::function<void()>& write)
{
    try
    {
        write();
    }
    catch (const CWriteError& error)
    {
        m_sWriteErrors.append(m_sWriteErrors.empty() ? "" : "; ").append(error.what());
    }
}

void CExperiment::DrawPicture(const std::string& sPath) const
{
    COutputFile file(sPath);
    try
    {
        WritePng(DrawWorld(m_Atoms, m_Settings), file);
    }
    catch (const std::bad_alloc&)
    {
        throw CWriteError(sPath + ": cannot be written: there is not enough memory for the picture");
    }
    file.Commit();
}

void CExperiment::CompleteResults()
{
    m_Results.atoms = m_Atoms.GetCount();
    const auto [pSmallest, pLargest] =
        std::minmax_element(m_Atoms.GetAtoms(), m_Atoms.GetAtoms() + m_Atoms.GetCount(),
                            [](const CAtom& a, const CAtom& b) { return a.radius < b.radius; });
    m_Results.smallestRadius = pSmallest->radius;
    m_Results.largestRadius = pLargest->radius;
    m_Results.velocities = m_Atoms.GetVelocities();
    m_Results.endSpeedSum = SumSpeeds(m_Atoms);
    CountOverlaps();
    m_Results.atomsOutside = CountAtomsOutside(m_Atoms, m_Settings.world);
    m_Results.hash = ComputeStateHash(m_Atoms);
}

void CExperiment::CountOverlaps()
{
    if (m_Options.noOverlaps)
    {
        return;
    }
    const CClock::time_point start = CClock::now();
    const CClock::duration limit = GetOverlapTimeLimit(start - m_Start);
    CProgressBar progress(GetProgressStream(), static_cast<std::uint64_t>(m_Atoms.GetCount()), "atoms");
    const auto mayGoOn = [start, limit, &progress](std::uint64_t uAtomsDone) {
        progress.Update(uAtomsDone);
        return CClock::now() - start < limit;
    };
    m_Results.overlaps = ComputeOverlapStatistics(m_Atoms, m_Settings.world, mayGoOn);
}

std::ostream* CExperiment::GetProgressStream() const
{
    return m_Console.bErrIsTerminal && !m_Options.quiet ? &m_Console.err : nullptr;
}

std::unique_ptr<IByteSink> CExperiment::OpenOutput(const std::string& sPath) const
{
    if (sPath == c_sStandardOutput)
    {
        return std::make_unique<CStreamSink>(m_Console.out);
    }
    return std::make_unique<COutputFile>(sPath);
}

bool CExperiment::IsStandardOutputTaken() const
{
    return m_Options.saveState == c_sStandardOutput || m_Options.stats == c_sStandardOutput;
}
