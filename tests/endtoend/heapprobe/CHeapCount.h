#pragma once

#include <cstdint>

// What all heaps of a process hold together. Written by the probe inside that process, read by the one that sent it.
struct CHeapCount
{
    std::uint64_t blocks = 0;
    std::uint64_t bytes = 0;
    std::uint32_t heaps = 0;
    std::uint32_t complete = 0; // 1 once all of them were walked
};

// The one function of the probe, by the name that it is exported under.
constexpr const char* c_sHeapProbeFunction = "CountHeaps";
