#include "tests/endtoend/CLeakWatch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>

CLeakWatch::CLeakWatch(const CDrivenProgram& program)
    : m_program(program), m_heap(program.GetHandle(), program.GetProcessId())
{
}

CLeakWatch::CCounts CLeakWatch::Count() const
{
    // Count the heaps first, so that the probe's thread is gone when the threads are counted.
    const CHeapCount heap = m_heap.Count();
    return {m_program.Count(), heap};
}

void CLeakWatch::Begin()
{
    m_before = Count();
}

std::string CLeakWatch::Describe(const CCounts& counts)
{
    const CProcessCounts& process = counts.process;
    return std::to_string(process.threads) + " threads, " + std::to_string(process.handles) + " handles, " +
           std::to_string(process.gdiObjects.total) + " GDI objects" +
           (process.gdiObjects.kinds.empty() ? "" : " (" + process.gdiObjects.kinds + ")") + ", " +
           std::to_string(process.userObjects) + " user objects, " + std::to_string(counts.heap.blocks) +
           " heap blocks of " + std::to_string(counts.heap.bytes) + " bytes";
}

void CLeakWatch::EndLeg(const std::string& sHeading, std::uint64_t uHeapOfSystem)
{
    const CCounts after = Count();
    std::cout << sHeading << "\n  before: " << Describe(m_before) << "\n  after:  " << Describe(after) << std::endl;
    const auto subtract = [](std::uint64_t uAfter, std::uint64_t uBefore) {
        return static_cast<std::int64_t>(uAfter) - static_cast<std::int64_t>(uBefore);
    };
    m_legs.push_back({after.process.threads - m_before.process.threads,
                      after.process.handles - m_before.process.handles,
                      after.process.gdiObjects.total - m_before.process.gdiObjects.total,
                      after.process.userObjects - m_before.process.userObjects,
                      subtract(after.heap.bytes, m_before.heap.bytes + uHeapOfSystem)});
    m_before = after;
}

std::int64_t CLeakWatch::GetLeastGrowth(std::int64_t CGrowth::*pResource) const
{
    const auto least = std::min_element(m_legs.begin(), m_legs.end(), [&](const CGrowth& one, const CGrowth& other) {
        return one.*pResource < other.*pResource;
    });
    return *least.*pResource;
}

void CLeakWatch::ExpectALegWithoutGrowth(std::int64_t iHeapOfSystem) const
{
    ASSERT_GT(m_legs.size(), 1U);
    EXPECT_LE(GetLeastGrowth(&CGrowth::threads), 0);
    EXPECT_LE(GetLeastGrowth(&CGrowth::handles), 0);
    EXPECT_LE(GetLeastGrowth(&CGrowth::gdiObjects), 0);
    EXPECT_LE(GetLeastGrowth(&CGrowth::userObjects), 0);
    EXPECT_LE(GetLeastGrowth(&CGrowth::heapBytes), iHeapOfSystem);
}
