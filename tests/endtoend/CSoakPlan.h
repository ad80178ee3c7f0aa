#pragma once

#include <chrono>
#include <cstdint>

// The repetitions or the duration of each soak test.
struct CSoakPlan
{
    std::uint32_t seed = 0;
    int longestPauseMilliseconds = 0; // between a start and the stop after it
    int startStopRounds = 0;
    int clicks = 0;
    int fullScreenToggles = 0;
    std::chrono::seconds storm{};
    std::chrono::seconds run{};
};

// Environment variables: the first selects the form with "short" or "long"; the second is a seed that repeats the
// random choices of an earlier soak.
constexpr const char* c_sSoakVariable = "KINETARIUM_SOAK";
constexpr const char* c_sSoakSeedVariable = "KINETARIUM_SOAK_SEED";

// The short form unless the environment selects the long one; the seed is random unless the environment sets it. Throws
// std::invalid_argument if a variable has another value.
CSoakPlan ReadSoakPlan();
