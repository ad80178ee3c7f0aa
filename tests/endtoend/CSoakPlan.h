#pragma once

#include <chrono>
#include <cstdint>

// How often or how long each soak does its part.
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

// Environment variables: "long" asks for the long form, a number for the random choices of a soak that is known.
constexpr const char* c_sSoakVariable = "KINETARIUM_SOAK";
constexpr const char* c_sSoakSeedVariable = "KINETARIUM_SOAK_SEED";

// The short form unless the environment asks for the long one; the seed is drawn unless the environment gives one.
// Throws std::invalid_argument if what it gives is something else.
CSoakPlan ReadSoakPlan();
