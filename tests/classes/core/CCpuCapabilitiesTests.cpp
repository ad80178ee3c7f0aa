#include "classes/core/CCpuCapabilities.h"

#include "classes/core/EnvironmentText.h"
#include "tests/classes/core/CEnvironmentChange.h"

#include <cstdio>
#include <gtest/gtest.h>

namespace
{

TEST(CpuCapabilities, TheBaselineHasNoFurtherInstructionSets)
{
    const CCpuCapabilities baseline(true);
    EXPECT_FALSE(baseline.HasAvx2());
    EXPECT_FALSE(baseline.HasAvx512());
}

TEST(CpuCapabilities, AProcessorWithAvx512HasAvx2Too)
{
    const CCpuCapabilities machine(false);
    EXPECT_TRUE(machine.HasAvx2() || !machine.HasAvx512());
}

TEST(CpuCapabilities, TheEnvironmentDecidesWhichInstructionSetsTheProcessUses)
{
    const bool bBaseline = CCpuCapabilities::IsBaselineSetting(GetEnvironmentText("KINETARIUM_CPU").value_or(L""));
    EXPECT_EQ(CCpuCapabilities(bBaseline), CCpuCapabilities());
    // The run with the variable set searches for this line.
    std::puts(bBaseline ? "the baseline is forced" : "the machine decides");
}

TEST(CpuCapabilities, ALaterChangeOfTheEnvironmentChangesNothing)
{
    // A kernel chosen at the start must not disagree with a later test's expectation.
    const CCpuCapabilities before;
    const CEnvironmentChange change("KINETARIUM_CPU", before == CCpuCapabilities(true) ? "all" : "baseline");
    EXPECT_EQ(before, CCpuCapabilities());
}

TEST(CpuCapabilities, OnlyTheExactWordForcesTheBaseline)
{
    EXPECT_TRUE(CCpuCapabilities::IsBaselineSetting(L"baseline"));
    EXPECT_FALSE(CCpuCapabilities::IsBaselineSetting(L""));
    EXPECT_FALSE(CCpuCapabilities::IsBaselineSetting(L"Baseline"));
    EXPECT_FALSE(CCpuCapabilities::IsBaselineSetting(L"baseline2"));
}

} // namespace
