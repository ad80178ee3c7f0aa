#include "simulation/KernelSetting.h"

#include "classes/core/CCpuCapabilities.h"
#include "classes/core/EnvironmentText.h"
#include "simulation/SimulationKernels.h"
#include "tests/classes/core/CEnvironmentChange.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <span>
#include <string_view>
#include <utility>

namespace
{

constexpr const char* c_sVariable = "KINETARIUM_CPU";

TEST(KernelSetting, TheEnvironmentSelectsTheKernelsOfTheProcess)
{
    const bool bBaseline = GetEnvironmentText(c_sVariable).value_or(L"") == L"baseline";
    const auto all = GetKernels(CCpuCapabilities(false));
    const auto expected = SelectKernels(all, GetKernelSetting());
    ASSERT_EQ(GetAllowedKernels().size(), expected.size());
    EXPECT_EQ(std::string_view(GetAllowedKernels().front().name), expected.front().name);
    EXPECT_EQ(std::string_view(GetSimulationKernels().name), expected.back().name);
    if (bBaseline)
    {
        EXPECT_EQ(std::string_view(GetSimulationKernels().name), "baseline");
    }
    // The test run that sets the variable searches for this line.
    std::puts(bBaseline ? "the baseline is forced" : "the machine decides");
}

TEST(KernelSetting, ALaterChangeOfTheEnvironmentChangesNothing)
{
    // Kernels chosen at the start must still be those that a later test expects.
    const std::size_t uBefore = GetAllowedKernels().size();
    const CEnvironmentChange change(c_sVariable, uBefore == 1 ? "all" : "baseline");
    EXPECT_EQ(GetAllowedKernels().size(), uBefore);
}

TEST(KernelSetting, OnlyTheExactWordsChoose)
{
    EXPECT_EQ(ParseKernelSetting(L"baseline"), EnumKernelSetting::Baseline);
    EXPECT_EQ(ParseKernelSetting(L"avx2"), EnumKernelSetting::Avx2);
    EXPECT_EQ(ParseKernelSetting(L"avx512"), EnumKernelSetting::Avx512);
    for (const wchar_t* sOther : {L"", L"Baseline", L"baseline2", L"AVX2", L"avx-512"})
    {
        EXPECT_EQ(ParseKernelSetting(sOther), EnumKernelSetting::Any) << sOther;
    }
}

TEST(KernelSetting, ANamedSetIsTheOnlyOneIfTheProcessorHasIt)
{
    const CSimulationKernels named[] = {{"baseline", {}, {}, {}}, {"AVX2", {}, {}, {}}, {"AVX-512", {}, {}, {}}};
    const std::span all(named);
    EXPECT_EQ(SelectKernels(all, EnumKernelSetting::Any).size(), 3U);
    for (const auto& [eSetting, sName] : {std::pair(EnumKernelSetting::Baseline, "baseline"),
                                          {EnumKernelSetting::Avx2, "AVX2"},
                                          {EnumKernelSetting::Avx512, "AVX-512"}})
    {
        ASSERT_EQ(SelectKernels(all, eSetting).size(), 1U);
        EXPECT_EQ(std::string_view(SelectKernels(all, eSetting).front().name), sName);
    }
    EXPECT_EQ(SelectKernels(all.first(2), EnumKernelSetting::Avx512).size(), 2U);
}

} // namespace
