#include "simulation/SpeedSum.h"

#include "tests/simulation/SameAtom.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace
{

float AddOneByOne(float fSum, const std::vector<float>& values)
{
    for (const float fValue : values)
    {
        fSum += fValue;
    }
    return fSum;
}

void Compare(const std::vector<float>& values, float fStart = 0)
{
    const float fExpected = AddOneByOne(fStart, values);
    const float fActual = AddInOrder(fStart, values);
    ASSERT_TRUE(IsSameFloat(fActual, fExpected)) << fActual << " instead of " << fExpected;
}

template<class Draw>
std::vector<float> Make(std::size_t uCount, Draw draw)
{
    std::vector<float> values(uCount);
    for (float& fValue : values)
    {
        fValue = draw();
    }
    return values;
}

TEST(SpeedSum, IsThatOfTheChainForSpeedsOfAnyNumber)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<float> speed(0, 2);
    for (std::size_t uCount = 0; uCount < 300; ++uCount)
    {
        Compare(Make(uCount, [&] { return speed(random); }));
    }
    Compare(Make(3'000'000, [&] { return speed(random); }));
}

TEST(SpeedSum, IsThatOfTheChainWhereverTheSumCrossesAPowerOfTwo)
{
    std::mt19937 random(2);
    for (int round = 0; round < 3000; ++round)
    {
        std::uniform_real_distribution<float> speed(0, std::ldexp(1.0F, static_cast<int>(random() % 12) - 10));
        const float fPower = std::ldexp(1.0F, static_cast<int>(random() % 16));
        Compare(Make(200, [&] { return speed(random); }), std::nextafter(fPower, 0.0F) - speed(random) * 70);
    }
}

// Values in the middle between two multiples of the unit of the sum, where the even neighbour decides.
TEST(SpeedSum, IsThatOfTheChainForTies)
{
    std::mt19937 random(3);
    for (int round = 0; round < 3000; ++round)
    {
        const float fUnit = std::ldexp(1.0F, static_cast<int>(random() % 8) - 8);
        const float fStart = std::ldexp(fUnit, 23) + static_cast<float>(random() % 2) * fUnit;
        const bool bRare = random() % 2 == 0;
        Compare(Make(130,
                     [&] {
                         const auto whole = static_cast<float>(random() % 5);
                         return (bRare && random() % 64 != 0 ? whole : whole + 0.5F) * fUnit;
                     }),
                fStart);
    }
}

TEST(SpeedSum, IsThatOfTheChainForAnyBits)
{
    std::mt19937 random(4);
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    const float tiny = std::numeric_limits<float>::denorm_min();
    const std::vector<float> strange = {nan,    infinity, tiny, -0.0F, 0.0F, -1.0F, std::numeric_limits<float>::max(),
                                        1e-30F, 1e30F,    5.0F};
    std::uniform_real_distribution<float> speed(0, 2);
    for (int round = 0; round < 3000; ++round)
    {
        std::vector<float> values = Make(200, [&] { return speed(random); });
        values[random() % values.size()] = strange[random() % strange.size()];
        Compare(values, random() % 2 == 0 ? 100.0F : strange[random() % strange.size()]);
    }
}

} // namespace
