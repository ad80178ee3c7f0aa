#pragma once

#include "simulation/CRace.h"

#include <cstddef>

// How to compute an iteration.
struct CWay
{
    std::size_t uKernels;  // number of the set of kernels
    std::size_t uParallel; // 1: on several threads, 0: on one

    bool operator==(const CWay&) const = default;
};

// Finds the fastest way by measuring. All ways give the same bits, and none is the fastest everywhere: the wider
// instruction sets lose on some processors and in some scenes, several threads lose while other programs use the
// processors. So the first iterations race the sets of kernels, and then one thread against several; the winner goes
// on. A new race follows when the world or the machine has changed much, and from time to time anyway. Several threads
// that become slower than one was in the race are given up at once. The slower ways of the races cost at most a
// twentieth of the time.
class CFastestWay
{
public:
    // uParallelWays is 2 if there are helpers, otherwise 1.
    CFastestWay(std::size_t uKernelSets, std::size_t uParallelWays);

    // The way of the next iteration.
    CWay GetWay() const;

    // True if Report wants the time of this iteration.
    bool IsTimed() const;

    // Call it after each iteration. The unit of time does not matter; ignored unless IsTimed.
    void Report(double time);

private:
    enum class EnumPhase
    {
        WarmUp,
        Kernels,
        Threads,
        Running
    };

    void StartRaces();
    void GoOn();
    void StartRunning();
    void Watch(double time);
    bool AreThreadsSlow(double time);

    std::size_t m_uKernelSets;
    std::size_t m_uParallelWays;
    EnumPhase m_ePhase = EnumPhase::WarmUp;
    int m_iIteration = 0; // of the phase
    CWay m_Winner;
    CRace m_KernelRace;
    CRace m_ThreadRace;
    double m_WinnerTime = 0; // of an iteration, when the race ended
    double m_Pause = 0;      // iterations before the next race
    int m_iChanged = 0;      // measurements in a row that differ much
    double m_OneThreadTime = 0;
    double m_WatchedTime = 0; // of the iterations on several threads since the last comparison with one
    int m_iWatched = 0;       // the number of these iterations
};
