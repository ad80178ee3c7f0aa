#pragma once

#include "tests/endtoend/CDrivenProgram.h"
#include "tests/endtoend/CForeignHeap.h"

#include <cstdint>
#include <string>

// Compares what a program holds at two moments at which it has come to rest in the same way.
class CLeakWatch
{
public:
    // From the construction on the program holds the probe that counts its heaps. Throws like CForeignHeap.
    explicit CLeakWatch(const CDrivenProgram& program);

    // Takes the first count: after a warm-up, since what is made once and kept is no leak.
    void Begin();
    // Prints both counts under a heading, and expects that the second is no larger, but for what the system itself
    // keeps now and then, and uHeapOfSystem bytes that it is known to lose.
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
