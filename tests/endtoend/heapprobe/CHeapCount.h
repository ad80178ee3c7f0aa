#pragma once

#include <cstdint>

// The totals of all heaps of a process. The probe inside that process writes them; the test reads them.
struct CHeapCount
{
    std::uint64_t blocks = 0;
    std::uint64_t bytes = 0;
    std::uint32_t heaps = 0;
    std::uint32_t complete = 0; // 1 when all heaps were walked
};

// The exported name of the probe's only function.
constexpr const char* c_sHeapProbeFunction = "CountHeaps";
