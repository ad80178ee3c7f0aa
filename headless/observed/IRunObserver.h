#pragma once

#include <cstdint>
#include <string>
#include <string_view>

class CAtoms;
struct CSettings;

// The world at the start of a run (iteration 0) or after an iteration.
struct CRunMoment
{
    std::uint64_t iteration{};
    std::uint32_t collisions{}; // of this iteration
    bool bLast{};               // of the run
    const CAtoms& atoms;
    const CSettings& settings;
};

// Something that looks at a run and writes of it. It sees every moment once, in order, also where the run is
// interrupted and continued. Each method may throw CWriteError; Observe also CInterruptedError.
struct IRunObserver
{
    virtual ~IRunObserver() = default;

    // Called before every iteration, with the atoms as they stand.
    virtual void Prepare(const CAtoms& atoms) = 0;

    virtual void Observe(const CRunMoment& moment) = 0;

    // Writes everything so far to its file; bOnDisk: and waits until it is on the disk, before a checkpoint that says
    // so.
    virtual void Keep(bool bOnDisk) = 0;

    // Everything that Continue needs, after the last moment that was observed whole.
    virtual std::string GetProgress() const = 0;

    // Goes on with a run that is continued; comes before all other calls. Throws CHeadlessError if what the progress
    // tells of is no longer there.
    virtual void Continue(std::string_view sProgress) = 0;

    // True if an interrupted Observe leaves nothing that a second one for the same moment would count twice.
    virtual bool MayObserveAgain() const = 0;

    // True where a write may wait for ever for its reader.
    virtual bool IsDirect() const = 0;

    // At the end of the run: puts what was written into its place.
    virtual void Commit() = 0;
};
