#pragma once

#include "classes/core/CRandom.h"
#include "headless/CConsole.h"
#include "headless/COptions.h"
#include "headless/IByteSink.h"
#include "headless/RunSettings.h"
#include "headless/Summary.h"
#include "simulation/CAtoms.h"
#include "simulation/CCollisionGrid.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <string>

// The longest time for counting overlaps at the end of a run that took so long: as long again, or two seconds if that
// is more.
std::chrono::steady_clock::duration GetOverlapTimeLimit(std::chrono::steady_clock::duration run);

// One run: populates the world or loads it, iterates, writes the requested files and the summary.
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
    void Iterate();
    void AdvanceOnce(std::uint64_t uIteration, IByteSink* pStats);
    void SaveResults();
    void SaveStateAtEnd(const std::string& sPath) const;

    // Results that cannot be written are an error only after the others and the summary are written.
    void Try(const std::function<void()>& write);

    void DrawPicture(const std::string& sPath) const;
    void CompleteResults();
    void CountOverlaps();
    std::ostream* GetProgressStream() const; // null = no progress is shown
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
    CRunResults m_Results;
    std::string m_sWriteErrors; // empty if everything could be written
};
