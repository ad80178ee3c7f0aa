#pragma once

#include "classes/core/CRandom.h"
#include "headless/CConsole.h"
#include "headless/COptions.h"
#include "headless/IByteSink.h"
#include "headless/RunSettings.h"
#include "headless/Summary.h"
#include "simulation/CAtoms.h"
#include "simulation/CCollisionGrid.h"

#include <cstdint>
#include <memory>
#include <string>

// One run: populate or load, iterate, write the files that were asked for, and sum up.
class CExperiment
{
public:
    // Both must live as long as this. Throws CHeadlessError for settings that do not fit together and for files that
    // could not be written in the end.
    CExperiment(const COptions& options, const CConsole& console);

    // Throws CHeadlessError or std::bad_alloc.
    void Run();

private:
    void Start();
    void Iterate();
    void AdvanceOnce(std::uint64_t uIteration, IByteSink* pStats);
    void SaveResults();
    void DrawPicture(const std::string& sPath) const;
    void CompleteResults();
    std::unique_ptr<IByteSink> OpenOutput(const std::string& sPath) const;
    bool IsStandardOutputTaken() const;

    const COptions& m_Options;
    const CConsole& m_Console;
    CSettings m_Settings;
    CRandom m_Random;
    CAtoms m_Atoms;
    CCollisionGrid m_Grid;
    CRunResults m_Results;
};
