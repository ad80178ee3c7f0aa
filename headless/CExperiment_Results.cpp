#include "headless/CExperiment.h"

#include "headless/console/CProgressBar.h"
#include "headless/console/HeadlessError.h"
#include "headless/files/CInterruptibleSink.h"
#include "headless/files/COutputFile.h"
#include "headless/files/CStreamSink.h"
#include "headless/observed/OverlapStatistics.h"
#include "headless/options/Outputs.h"
#include "headless/pictures/CNumberedPictures.h"
#include "headless/pictures/CWorldImage.h"
#include "headless/pictures/PngFile.h"
#include "headless/states/StateFile.h"
#include "headless/states/StateHash.h"
#include "headless/states/StateRescue.h"

#include <algorithm>
#include <new>

// What a run writes besides its statistics and checkpoints, and what its summary tells.

namespace
{

// A run of a moment may be followed by a count of a moment.
constexpr std::chrono::seconds c_ShortRun{2};

} // namespace

std::chrono::steady_clock::duration GetOverlapTimeLimit(std::chrono::steady_clock::duration run)
{
    return std::max<std::chrono::steady_clock::duration>(run, c_ShortRun);
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
        CInterruptibleSink file(OpenOutput(sPath), [this] { CheckInterruption(); });
        SaveState(m_Atoms, file);
        file.Commit();
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

void CExperiment::DrawPictureOfIteration() const
{
    if (m_Options.pictureEvery && m_Results.iterations > 0 && m_Results.iterations % *m_Options.pictureEvery == 0)
    {
        DrawPicture(GetNumberedName(*m_Options.picture, m_Results.iterations, m_uLastIteration));
    }
}

void CExperiment::DrawPicture(const std::string& sPath) const
{
    CInterruptibleSink file(OpenOutput(sPath), [this] { CheckInterruption(); });
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
    const auto mayGoOn = [this, start, limit, &progress](std::uint64_t uAtomsDone) {
        CheckInterruption();
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
    const std::vector<COutput> outputs = GetOutputs(m_Options);
    return std::any_of(outputs.begin(), outputs.end(),
                       [](const COutput& output) { return output.path == c_sStandardOutput; });
}
