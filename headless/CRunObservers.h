#pragma once

#include "headless/observed/IRunObserver.h"
#include "headless/states/RunProgress.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

// Everything that observes a run.
class CRunObservers
{
public:
    // The progress of a run that continues after so many iterations; an empty one and 0 for a new run. The progress of
    // observers that are not added stays what it is.
    CRunObservers(CRunProgress progress, std::uint64_t uIterations);

    // Adds what the option asks for, and lets it continue. Throws CHeadlessError if it cannot.
    void Add(const std::string& sOption, std::unique_ptr<IRunObserver> pObserver);

    void Prepare(const CAtoms& atoms);

    // Shows the moment to all that have not observed it yet.
    void Observe(const CRunMoment& moment);

    // Writes everything so far to its file; bOnDisk: and waits until it is on the disk.
    void Keep(bool bOnDisk);

    // True where a write may wait for ever for its reader.
    bool IsDirect() const;

    // For a checkpoint of this moment.
    CRunProgress GetProgress() const;

    // Commits each by itself: attempt calls what it gets and remembers an error.
    void Commit(const std::function<void(const std::function<void()>&)>& attempt);

private:
    struct CEntry
    {
        std::string option;
        std::unique_ptr<IRunObserver> pObserver;
        std::uint64_t next; // the first iteration that it has not observed whole
    };

    CRunProgress m_Progress; // at the start
    std::uint64_t m_uIterations;
    std::vector<CEntry> m_entries;
};
