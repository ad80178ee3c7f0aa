#pragma once

#include "tests/endtoend/CDrivenProgram.h"
#include "tests/endtoend/CForeignHeap.h"

#include <cstdint>
#include <string>
#include <vector>

// Compares a program's resources after legs of the same actions. The system keeps temporary objects of its own: it
// fills a cache at the first use of each mouse pointer or pattern, whenever that comes, and it frees some memory late.
// So one comparison tells little, but only a leak grows in every leg.
class CLeakWatch
{
public:
    // Loads the probe that counts the heaps into the program. Throws like CForeignHeap.
    explicit CLeakWatch(const CDrivenProgram& program);

    // Begins the first leg. Call it after a warm-up, because objects that are created once and kept are no leak.
    void Begin();
    // Ends a leg, prints its counts under a heading, and begins the next. The system is known to have lost
    // uHeapOfSystem bytes in this leg.
    void EndLeg(const std::string& sHeading, std::uint64_t uHeapOfSystem = 0);
    // Expects of each resource that it did not grow in every leg. The system may have lost iHeapOfSystem bytes of the
    // heaps in each leg.
    void ExpectALegWithoutGrowth(std::int64_t iHeapOfSystem = 0) const;

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
