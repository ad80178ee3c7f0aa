#pragma once

#include "tests/endtoend/CDrivenProgram.h"
#include "tests/endtoend/CForeignHeap.h"

#include <cstdint>
#include <string>
#include <vector>

// Compares a program's resources at two moments in the same idle state.
class CLeakWatch
{
public:
    // Loads the probe that counts the heaps into the program. Throws like CForeignHeap.
    explicit CLeakWatch(const CDrivenProgram& program);

    // Takes the first count. Call it after a warm-up, because objects that are created once and kept are no leak.
    void Begin();
    // Prints both counts under a heading and expects that the second is not larger. Allowed are the system's own
    // temporary objects and uHeapOfSystem bytes that the system is known to lose.
    void ExpectNothingLeft(const std::string& sAfterWhat, std::uint64_t uHeapOfSystem = 0) const;

    // For random actions, which no warm-up can prepare: the system fills a cache at the first use of each mouse pointer
    // or pattern, whenever that comes, but only a leak grows in every leg. Ends a leg of such actions, prints its
    // counts, and begins the next.
    void EndLeg(const std::string& sAfterWhat, std::uint64_t uHeapOfSystem = 0);
    // Expects of each resource that it did not grow in every leg.
    void ExpectALegWithoutGrowth() const;

private:
    struct CCounts
    {
        CProcessCounts process;
        CHeapCount heap;
    };

    struct CGrowth
    {
        std::int64_t threads = 0;
        std::int64_t handles = 0;
        std::int64_t gdiObjects = 0;
        std::int64_t userObjects = 0;
        std::int64_t heapBytes = 0;
    };

    std::int64_t GetLeastGrowth(std::int64_t CGrowth::*pResource) const;
    CCounts Count() const;
    static std::string Describe(const CCounts& counts);

    const CDrivenProgram& m_program;
    CForeignHeap m_heap;
    CCounts m_before;
    std::vector<CGrowth> m_legs;
};
