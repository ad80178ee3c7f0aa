#pragma once

#include "classes/core/CRandom.h"
#include "headless/CConsole.h"
#include "headless/Checkpoint.h"
#include "headless/COptions.h"
#include "headless/CStatsWriter.h"
#include "headless/IByteSink.h"
#include "headless/RunSettings.h"
#include "headless/Summary.h"
#include "simulation/CAtoms.h"
#include "simulation/CCollisionGrid.h"
#include "simulation/CIterationRunner.h"

#include <cstdint>
#include <memory>
#include <string>

// One run: populates the world, loads it or continues a checkpoint, iterates, writes the requested files and the
// summary.
class CExperiment
{
public:
    // Both must outlive this object. Throws CHeadlessError for settings that contradict each other and for output files
    // that cannot be written.
    CExperiment(const COptions& options, const CConsole& console);

    // Throws CHeadlessError or std::bad_alloc.
    void Run();

private:
    void Start();
    void Continue();
    void Iterate();
    void AdvanceAll(CStatsWriter* pStats);
    void AdvanceOnce(std::uint64_t uIteration, CStatsWriter* pStats);
    void SaveCheckpoint(CStatsWriter* pStats);
    bool TrySaveCheckpoint();
    void SaveResults();
    void DrawPictureOfIteration() const;
    void DrawPicture(const std::string& sPath) const;
    void CompleteResults();
    void CheckInterruption() const;
    std::unique_ptr<IByteSink> OpenOutput(const std::string& sPath) const;
    bool IsStandardOutputTaken() const;

    const COptions& m_Options;
    const CConsole& m_Console;
    CSettings m_Settings;
    CRandom m_Random;
    CAtoms m_Atoms;
    CCollisionGrid m_Grid;
    CIterationRunner m_Runner;
    CRunResults m_Results;
    std::uint64_t m_uLastIteration = 0; // of the whole run, with those before the checkpoint
    CStatsPosition m_Stats;             // at the last checkpoint
};
