#include "classes/core/CCpuCapabilities.h"

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
    const CCpuCapabilities machine;
    EXPECT_TRUE(machine.HasAvx2() || !machine.HasAvx512());
}

} // namespace
