#pragma once

#include "tests/sequences/CWindowModel.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// A window that can be driven and looked at: the real one, or a stand-in that tests the driving.
class IWindowUnderTest
{
public:
    virtual ~IWindowUnderTest() = default;

    virtual CScreenMeasures GetScreen() = 0;

    // Opens the window with the settings of a sequence's beginning, whatever was before.
    virtual void Open() = 0;

    // The first step, and those that arrive in the middle of it. Returns when all are done.
    virtual void Perform(const std::vector<CTakenStep>& group) = 0;

    virtual CWindowFacts Observe() = 0;
};

// Drives the window through the steps that it can take, and compares it with the model after each group of steps.
// Returns nothing if all is as predicted, otherwise the differences after the first group that shows one.
std::optional<std::string> RunSequence(IWindowUnderTest& window, const std::vector<CStep>& steps);

// The result of a search among sequences of consecutive seeds.
struct CSearchResult
{
    std::uint64_t uSeed = 0;  // of the sequence that has failed
    std::string sDifferences; // after its shortest form; empty if none has failed
    std::vector<CStep> shortest;
};

// Runs uCount sequences and shrinks the first one that fails.
CSearchResult SearchSequences(IWindowUnderTest& window, std::uint64_t uFirstSeed, std::uint64_t uCount);
