#include "simulation/BaselineSetting.h"

#include "classes/core/CCpuCapabilities.h"
#include "classes/core/EnvironmentText.h"
#include "simulation/SimulationKernels.h"
#include "tests/classes/core/CEnvironmentChange.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <string_view>

namespace
{

constexpr const char* c_sVariable = "KINETARIUM_CPU";

TEST(BaselineSetting, TheEnvironmentSelectsTheKernelsOfTheProcess)
{
    const bool bBaseline = GetEnvironmentText(c_sVariable).value_or(L"") == L"baseline";
    EXPECT_EQ(IsBaselineForced(), bBaseline);
    const std::string_view sExpected = GetKernels(CCpuCapabilities(bBaseline)).back().name;
    EXPECT_EQ(std::string_view(GetSimulationKernels().name), sExpected);
    // The test run that sets the variable searches for this line.
    std::puts(bBaseline ? "the baseline is forced" : "the machine decides");
}

TEST(BaselineSetting, ALaterChangeOfTheEnvironmentChangesNothing)
{
    // A kernel chosen at the start must still be the one that a later test expects.
    const std::string_view sBefore = GetSimulationKernels().name;
    const CEnvironmentChange change(c_sVariable, sBefore == "baseline" ? "all" : "baseline");
    EXPECT_EQ(std::string_view(GetSimulationKernels().name), sBefore);
}

TEST(BaselineSetting, OnlyTheExactWordForcesTheBaseline)
{
    EXPECT_TRUE(IsBaselineSetting(L"baseline"));
    EXPECT_FALSE(IsBaselineSetting(L""));
    EXPECT_FALSE(IsBaselineSetting(L"Baseline"));
    EXPECT_FALSE(IsBaselineSetting(L"baseline2"));
}

} // namespace
