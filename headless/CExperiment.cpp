#include "headless/CExperiment.h"

#include "headless/console/CProgressBar.h"
#include "headless/console/HeadlessError.h"
#include "headless/files/COutputFile.h"
#include "headless/files/Interruption.h"
#include "headless/HistogramsOfRun.h"
#include "headless/observed/CCurveObserver.h"
#include "headless/observed/CStatsWriter.h"
#include "headless/options/Outputs.h"
#include "headless/options/StartText.h"
#include "headless/OutputPlaces.h"
#include "headless/pictures/CNumberedPictures.h"
#include "headless/report/RepeatCommand.h"
#include "headless/report/Summary.h"
#include "headless/Resume.h"
#include "headless/states/StateFile.h"
#include "simulation/Population.h"
#include "simulation/ThreadSetting.h"

#include <chrono>
#include <iostream>
#include <utility>

namespace
{

// Spreadsheets and readers of JSON keep whole numbers as 64-bit floats, which have so many bits for them.
constexpr std::uint64_t c_uDrawnSeedMask = (std::uint64_t{1} << 53U) - 1;

CRandom MakeRandom(const COptions& options)
{
    return CRandom(options.seed ? *options.seed : CRandom().GetSeed() & c_uDrawnSeedMask);
}

std::string DescribeContinuation(const COptions& options)
{
    return options.checkpoint ? "; --resume " + *options.checkpoint + " continues the run" : "";
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

} // namespace

CExperiment::CExperiment(const COptions& options, const CConsole& console)
    : m_Options(options),
      m_Console(console),
      m_Settings(options.resume ? CSettings() : ResolveSettings(options)),
      m_Random(MakeRandom(options)),
      m_Runner(options.threads.value_or(GetThreadCount())),
      m_uLastIteration(options.iterations),
      m_StandardOutput(console.out)
{
    // Fail before hours of computing, not after them.
    if (options.resume)
    {
        Continue();
    }
    CheckOutputs();
}

void CExperiment::CheckOutputs() const
{
    CheckOutputPlaces(m_Options, m_uLastIteration);
    for (const COutput& output : GetOutputs(m_Options))
    {
        if (output.path != c_sStandardOutput)
        {
            COutputFile::Check(output.path);
        }
    }
    CheckHistogramIterations(m_Options, m_Results.iterations, m_uLastIteration, m_Progress);
    if (m_Options.pictureEvery)
    {
        COutputFile::Check(GetNumberedName(*m_Options.picture, m_uLastIteration, m_uLastIteration));
    }
}

void CExperiment::Run()
{
    if (!m_Options.resume)
    {
        Start();
    }
    Iterate();
    SaveResults();
    CompleteResults();
    const std::vector<CSummaryValue> values =
        MakeSummaryValues(m_Settings, m_Results, MakeRepeatCommand(m_Settings, m_Results, c_eShell));
    Try([this, &values] { SaveReport(values); });
    CheckInterruption();
    std::ostream& summary = IsStandardOutputTaken() ? m_Console.err : m_Console.out;
    summary << FormatSummary(values, m_Options.summary) << std::flush;
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

void CExperiment::Continue()
{
    CCheckpoint checkpoint = ReadCheckpointFile(*m_Options.resume, m_Atoms);
    CheckAgainstCheckpoint(m_Options, checkpoint);
    m_Settings = std::move(checkpoint.settings);
    m_Random.SetState(checkpoint.seed, checkpoint.random);
    m_Grid.Resize(m_Settings.world);
    m_Results.seed = checkpoint.seed;
    m_Results.start = std::move(checkpoint.start);
    m_Results.startSpeedSum = checkpoint.startSpeedSum;
    m_Results.iterations = checkpoint.iterations;
    m_Results.collisions = checkpoint.collisions;
    m_uLastCollisions = checkpoint.lastCollisions;
    m_Progress = std::move(checkpoint.progress);
    m_uLastIteration += checkpoint.iterations;
}

void CExperiment::AddObservers(CRunObservers& observers)
{
    // The statistics and the curve must see each moment before an observer that can be interrupted.
    if (m_Options.stats)
    {
        const CStatsTable table = {m_Options.statsEvery.value_or(1), m_Options.observables, m_Settings.world};
        IByteSink* const pDirect = *m_Options.stats == c_sStandardOutput ? &m_StandardOutput : nullptr;
        observers.Add("--stats", std::make_unique<CStatsWriter>(*m_Options.stats, pDirect, table));
    }
    if (m_Options.report)
    {
        observers.Add("--report", std::make_unique<CCurveObserver>(m_Curve));
    }
    AddHistograms(observers, m_Options, m_Results.startSpeedSum / m_Atoms.GetCount(), m_StandardOutput);
    AddRecorders(observers);
}

void CExperiment::Iterate()
{
    CRunObservers observers(m_Progress, m_Results.iterations);
    AddObservers(observers);
    // A checkpoint is worth waiting for, but a pipe that nobody reads is not.
    const CExtendedTime time(m_Options.checkpoint && !observers.IsDirect());
    try
    {
        AdvanceAll(observers);
    }
    catch (const CInterruptedError& interruption)
    {
        KeepAndSaveCheckpoint(observers);
        throw CInterruptedError(interruption.what() + DescribeContinuation(m_Options), interruption.GetExitCode());
    }
    catch (const CHeadlessError& error)
    {
        // Something cannot be written. The atoms are those of a whole iteration.
        throw CHeadlessError(error.what() + (TrySaveCheckpoint() ? DescribeContinuation(m_Options) : ""));
    }
    m_Progress = observers.GetProgress();
    observers.Commit([this](const std::function<void()>& commit) { Try(commit); });
    Try([this] { SaveCheckpoint(); });
}

void CExperiment::AdvanceAll(CRunObservers& observers)
{
    const std::uint64_t uBefore = m_Results.iterations;
    CProgressBar progress(GetProgressStream(), m_Options.iterations, "iterations");
    Observe(observers);
    if (m_Options.resume)
    {
        // The signal that ended the run may have come while this picture was drawn.
        DrawPictureOfIteration();
    }
    while (m_Results.iterations < m_uLastIteration)
    {
        AdvanceOnce(m_Results.iterations + 1, observers);
        progress.Update(m_Results.iterations - uBefore);
    }
    CheckInterruption();
}

void CExperiment::AdvanceOnce(std::uint64_t uIteration, CRunObservers& observers)
{
    CheckInterruption();
    observers.Prepare(m_Atoms);
    const auto start = std::chrono::steady_clock::now();
    m_uLastCollisions = m_Runner.Advance(m_Atoms, m_Grid, m_Settings.world, m_Random);
    const std::chrono::nanoseconds duration = std::chrono::steady_clock::now() - start;
    m_Results.durations.Add(static_cast<std::uint64_t>(duration.count()));
    m_Results.collisions += m_uLastCollisions;
    m_Results.iterations = uIteration;
    Observe(observers);
    DrawPictureOfIteration();
    const bool bDue = m_Options.checkpointEvery && uIteration % *m_Options.checkpointEvery == 0;
    if (bDue && uIteration < m_uLastIteration)
    {
        KeepAndSaveCheckpoint(observers);
    }
}

void CExperiment::Observe(CRunObservers& observers)
{
    observers.Observe(
        {m_Results.iterations, m_uLastCollisions, m_Results.iterations == m_uLastIteration, m_Atoms, m_Settings});
}

void CExperiment::KeepAndSaveCheckpoint(CRunObservers& observers)
{
    // First the files: they may hold more than a checkpoint knows, which is left out, but not less.
    // Without a checkpoint nothing relies on the disk, which may need seconds for the rest of a large file.
    observers.Keep(m_Options.checkpoint.has_value());
    m_Progress = observers.GetProgress();
    SaveCheckpoint();
}

void CExperiment::SaveCheckpoint()
{
    if (!m_Options.checkpoint)
    {
        return;
    }
    const CExtendedTime time(true);
    COutputFile file(*m_Options.checkpoint);
    WriteCheckpoint({m_Settings, m_Results.start, m_Results.seed, m_Random.GetState(), m_Results.iterations,
                     m_Results.collisions, m_Results.startSpeedSum, m_uLastCollisions, m_Progress},
                    m_Atoms, file);
    file.Commit();
}

// With the progress of the checkpoint before: newer rows may be missing.
bool CExperiment::TrySaveCheckpoint()
{
    try
    {
        SaveCheckpoint();
        return true;
    }
    catch (const CHeadlessError&)
    {
        return false;
    }
}

void CExperiment::CheckInterruption() const
{
    const int exitCode = m_Console.pInterrupted != nullptr ? m_Console.pInterrupted->load() : 0;
    if (exitCode != 0)
    {
        throw CInterruptedError("interrupted after " + std::to_string(m_Results.iterations) + " of " +
                                    std::to_string(m_uLastIteration) + " iterations",
                                exitCode);
    }
}
