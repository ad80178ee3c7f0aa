#include "classes/core/EnvironmentText.h"
#include "tests/sequences/StepCode.h"
#include "tests/windows/sequences/CRealWindow.h"

#include <gtest/gtest.h>

#include <iostream>

// Random sequences of everything that can be done to the window. Each test has seeds of its own, so that no test is
// long.

namespace
{
constexpr std::uint64_t c_uTests = 10;
constexpr std::uint64_t c_uSequencesPerTest = 10;

std::uint64_t ReadNumber(const char* sVariable, std::uint64_t uDefault)
{
    const std::optional<std::wstring> sText = GetEnvironmentText(sVariable);
    return sText ? std::stoull(*sText) : uDefault;
}

class Sequences : public testing::TestWithParam<std::uint64_t>
{
};

void ExpectAllAsPredicted(std::uint64_t uFirst, std::uint64_t uCount)
{
    std::cout << "seeds " << uFirst << " to " << uFirst + uCount - 1 << std::endl;
    CRealWindow window;
    const CSearchResult found = SearchSequences(window, uFirst, uCount);
    EXPECT_TRUE(found.sDifferences.empty())
        << "seed " << found.uSeed << " after " << found.uSeed - uFirst + 1 << " sequences\n"
        << found.sDifferences << "\n"
        << WriteTest("Seed" + std::to_string(found.uSeed), found.shortest);
}
} // namespace

TEST_P(Sequences, TheWindowShowsWhatTheModelPredictsAfterEachStep)
{
    ExpectAllAsPredicted(KINETARIUM_FIRST_SEED + GetParam() * c_uSequencesPerTest, c_uSequencesPerTest);
}

INSTANTIATE_TEST_SUITE_P(OfTen, Sequences, testing::Range(std::uint64_t{0}, c_uTests));

// scripts/sequences.sh sets the variables. Without them: one sequence, the first.
TEST(ManySequences, TheWindowShowsWhatTheModelPredictsAfterEachStep)
{
    ExpectAllAsPredicted(ReadNumber("KINETARIUM_SEQUENCES_SEED", 1), ReadNumber("KINETARIUM_SEQUENCES_COUNT", 1));
}
