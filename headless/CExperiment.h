#pragma once

#include "classes/core/CRandom.h"
#include "headless/console/CConsole.h"
#include "headless/CRunObservers.h"
#include "headless/files/CStreamSink.h"
#include "headless/files/IByteSink.h"
#include "headless/observed/CRunCurve.h"
#include "headless/options/COptions.h"
#include "headless/options/RunSettings.h"
#include "headless/report/RunResults.h"
#include "headless/report/SummaryValues.h"
#include "headless/states/Checkpoint.h"
#include "simulation/CAtoms.h"
#include "simulation/CCollisionGrid.h"
#include "simulation/CIterationRunner.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

// The longest time for counting overlaps at the end of a run that took so long: as long again, or two seconds if that
// is more.
std::chrono::steady_clock::duration GetOverlapTimeLimit(std::chrono::steady_clock::duration run);

// One run: populates the world, loads it or continues a checkpoint, iterates, writes the requested files and the
// summary.
class CExperiment
{
public:
    // Both must outlive this object. Reads the checkpoint of a run that continues. Throws CHeadlessError for settings
    // that contradict each other and for output files that cannot be written.
    CExperiment(const COptions& options, const CConsole& console);

    // Throws CHeadlessError or std::bad_alloc.
    void Run();

private:
    void Continue();
    void CheckOutputs() const;
    void Start();
    void Iterate();
    void AddObservers(CRunObservers& observers);
    void AddRecorders(CRunObservers& observers);
    void AdvanceAll(CRunObservers& observers);
    void AdvanceOnce(std::uint64_t uIteration, CRunObservers& observers);
    void Observe(CRunObservers& observers);
    void KeepAndSaveCheckpoint(CRunObservers& observers);
    void SaveCheckpoint();
    bool TrySaveCheckpoint();
    void SaveResults();
    void SaveReport(const std::vector<CSummaryValue>& values) const;
    void SaveStateAtEnd(const std::string& sPath) const;

    // Results that cannot be written are an error only after the others and the summary are written.
    void Try(const std::function<void()>& write);

    void DrawPictureOfIteration() const;
    void DrawPicture(const std::string& sPath) const;
    void CompleteResults();
    void CountOverlaps();
    std::ostream* GetProgressStream() const; // null = no progress is shown
    void CheckInterruption() const;
    std::unique_ptr<IByteSink> OpenOutput(const std::string& sPath) const;
    bool IsStandardOutputTaken() const;

    using CClock = std::chrono::steady_clock;

    const CClock::time_point m_Start = CClock::now();
    const COptions& m_Options;
    const CConsole& m_Console;
    CSettings m_Settings;
    CRandom m_Random;
    CAtoms m_Atoms;
    CCollisionGrid m_Grid;
    CIterationRunner m_Runner;
    CRunResults m_Results;
    std::uint64_t m_uLastIteration;    // of the whole run, with those before the checkpoint
    std::uint32_t m_uLastCollisions{}; // of the iteration before
    CRunProgress m_Progress;           // of the observers at the last checkpoint
    CRunCurve m_Curve;                 // for the report
    CStreamSink m_StandardOutput;
    std::string m_sWriteErrors; // empty if everything could be written
};
