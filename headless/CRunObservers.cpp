#include "headless/CRunObservers.h"

#include "headless/console/HeadlessError.h"

#include <algorithm>
#include <utility>

CRunObservers::CRunObservers(CRunProgress progress, std::uint64_t uIterations)
    : m_Progress(std::move(progress)), m_uIterations(uIterations)
{
}

void CRunObservers::Add(const std::string& sOption, std::unique_ptr<IRunObserver> pObserver)
{
    const bool bAgain = pObserver->MayObserveAgain();
    const auto found = m_Progress.find(sOption);
    std::uint64_t next = m_uIterations;
    if (found != m_Progress.end())
    {
        next = found->second.next;
        // What was interrupted while it observed the last moment observes it again, if it can.
        if (next != m_uIterations + 1 && !(bAgain && next == m_uIterations))
        {
            throw CUsageError(sOption + ": contradicts the checkpoint of --resume: a part of the run was without it, " +
                              "from iteration " + std::to_string(next) + " to iteration " +
                              std::to_string(m_uIterations));
        }
        pObserver->Continue(found->second.bytes);
    }
    else if (!bAgain && m_uIterations > 0)
    {
        ++next; // the last iteration before the checkpoint is over
    }
    m_entries.push_back({sOption, std::move(pObserver), next});
}

void CRunObservers::Prepare(const CAtoms& atoms)
{
    for (const CEntry& entry : m_entries)
    {
        entry.pObserver->Prepare(atoms);
    }
}

void CRunObservers::Observe(const CRunMoment& moment)
{
    for (CEntry& entry : m_entries)
    {
        if (entry.next <= moment.iteration)
        {
            entry.pObserver->Observe(moment);
            entry.next = moment.iteration + 1;
        }
    }
}

void CRunObservers::Keep(bool bOnDisk)
{
    for (const CEntry& entry : m_entries)
    {
        entry.pObserver->Keep(bOnDisk);
    }
}

bool CRunObservers::IsDirect() const
{
    return std::any_of(m_entries.begin(), m_entries.end(),
                       [](const CEntry& entry) { return entry.pObserver->IsDirect(); });
}

CRunProgress CRunObservers::GetProgress() const
{
    CRunProgress progress = m_Progress;
    for (const CEntry& entry : m_entries)
    {
        progress[entry.option] = {entry.next, entry.pObserver->GetProgress()};
    }
    return progress;
}

void CRunObservers::Commit(const std::function<void(const std::function<void()>&)>& attempt)
{
    for (const CEntry& entry : m_entries)
    {
        attempt([&entry] { entry.pObserver->Commit(); });
    }
}
