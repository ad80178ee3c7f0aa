#include "simulation/CollisionThresholds.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

namespace
{

constexpr std::uint32_t c_uFloatsAround = 100'000;

// Calls check with the floats around the limit, and with some far from it.
template<class Check>
void ForFloatsAround(float limit, Check check)
{
    const std::uint32_t uMiddle = std::bit_cast<std::uint32_t>(limit);
    for (std::uint32_t uBits = uMiddle - c_uFloatsAround; uBits <= uMiddle + c_uFloatsAround; ++uBits)
    {
        check(std::bit_cast<float>(uBits));
    }
    constexpr float c_fInfinity = std::numeric_limits<float>::infinity();
    for (const float value : {0.0F, 1e-30F, 0.5F, 64.0F, 1e30F, c_fInfinity, std::nanf("")})
    {
        check(value);
    }
}

TEST(CollisionThresholds, TheOverlapLimitDecidesAsTheTolerantComparisonDoes)
{
    ForFloatsAround(c_fOverlapLimit, [](float overlap) {
        const bool bTolerant = Dbl_IsBigger(static_cast<double>(overlap), c_dSeparationTolerance, c_dEpsilon);
        ASSERT_EQ(overlap > c_fOverlapLimit, bTolerant) << overlap;
    });
}

TEST(CollisionThresholds, TheCoincidenceLimitDecidesAsTheTolerantComparisonDoes)
{
    ForFloatsAround(c_fCoincidenceLimit, [](float distance) {
        const bool bTolerant = Dbl_IsSmaller(static_cast<double>(distance), c_dCoincidenceDistance, c_dEpsilon);
        ASSERT_EQ(distance <= c_fCoincidenceLimit, bTolerant) << distance;
    });
}

TEST(CollisionThresholds, TheRestLimitDecidesAsTheTolerantComparisonDoes)
{
    ForFloatsAround(c_fRestLimit, [](float speed) {
        const bool bTolerant =
            Dbl_IsInRangeInclusive(static_cast<double>(speed), -c_dRestSpeed, c_dRestSpeed, c_dEpsilon);
        ASSERT_EQ(speed <= c_fRestLimit, bTolerant) << speed;
    });
}

} // namespace
