#include "classes/core/CCpuCapabilities.h"

#include "classes/core/EnvironmentText.h"
#include "tests/classes/core/CEnvironmentChange.h"

#include <cstdio>
#include <gtest/gtest.h>

namespace
{

TEST(CpuCapabilities, TheBaselineOffersNothingMore)
{
    const CCpuCapabilities baseline(true);
    EXPECT_FALSE(baseline.HasAvx2());
    EXPECT_FALSE(baseline.HasAvx512());
}

TEST(CpuCapabilities, AProcessorWithTheLongestVectorsHasTheMiddleOnesToo)
{
    const CCpuCapabilities machine(false);
    EXPECT_TRUE(machine.HasAvx2() || !machine.HasAvx512());
}

TEST(CpuCapabilities, TheEnvironmentDecidesWhatTheProcessUses)
{
    const bool bBaseline = CCpuCapabilities::IsBaselineSetting(GetEnvironmentText("KINETARIUM_CPU").value_or(L""));
    EXPECT_EQ(CCpuCapabilities(bBaseline), CCpuCapabilities());
    // What the run with the variable set looks for.
    std::puts(bBaseline ? "the baseline is forced" : "the machine decides");
}

TEST(CpuCapabilities, ALaterChangeOfTheEnvironmentChangesNothing)
{
    // A kernel chosen at the start must not disagree with a test's idea of it later on.
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
