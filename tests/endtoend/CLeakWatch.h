#pragma once

#include "tests/endtoend/CDrivenProgram.h"
#include "tests/endtoend/CForeignHeap.h"

#include <cstdint>
#include <string>

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

private:
    struct CCounts
    {
        CProcessCounts process;
        CHeapCount heap;
    };

    CCounts Count() const;
    static std::string Describe(const CCounts& counts);

    const CDrivenProgram& m_program;
    CForeignHeap m_heap;
    CCounts m_before;
};
