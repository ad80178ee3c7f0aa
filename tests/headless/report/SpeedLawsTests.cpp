#include "headless/report/SpeedDistribution.h"
#include "headless/report/SpeedLaws.h"
#include "tests/headless/HeadlessTesting.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{

// The area below a density from 0 to speed, by the rule of Simpson.
template<class Density>
double Integrate(Density density, double speed)
{
    constexpr int c_iSteps = 1000; // an even number
    const double step = speed / c_iSteps;
    double sum = density(0.0) + density(speed);
    for (int index = 1; index < c_iSteps; ++index)
    {
        sum += density(step * index) * (index % 2 == 0 ? 2 : 4);
    }
    return sum * step / 3;
}

// So many speeds of a law that their shares are exactly in the middle of each step.
std::vector<double> DrawExactly(int count)
{
    std::vector<double> sample;
    for (int index = 0; index < count; ++index)
    {
        sample.push_back(std::sqrt(-std::log1p(-(index + 0.5) / count))); // the inverse of the Rayleigh law
    }
    return sample;
}

CAtoms MakeMoving(std::initializer_list<float> speeds)
{
    CAtoms atoms;
    atoms.Allocate(static_cast<std::int32_t>(speeds.size()));
    std::int32_t index = 0;
    for (const float speed : speeds)
    {
        atoms[index++].speed = speed;
    }
    return atoms;
}

} // namespace

TEST(SpeedLaws, TheRayleighDistributionHasItsKnownValues)
{
    EXPECT_EQ(ComputeRayleighDistribution(0, 2), 0);
    EXPECT_NEAR(ComputeRayleighDistribution(std::sqrt(std::log(2.0)), 1), 0.5, 1e-15); // the median
    EXPECT_NEAR(ComputeRayleighDistribution(1, 2), 0.3934693402873666, 1e-15);         // 1 - exp(-1 / 2)
    EXPECT_NEAR(ComputeRayleighDistribution(3, 2), 0.9888910034617577, 1e-15);
}

// Values of the chi-squared law with 8 degrees of freedom, which is the Gamma law of shape 4 and mean 8.
TEST(SpeedLaws, TheGammaDistributionHasItsKnownValues)
{
    EXPECT_EQ(ComputeGammaDistribution(0, 8), 0);
    EXPECT_NEAR(ComputeGammaDistribution(2, 8), 0.018988156876153815, 1e-15);
    EXPECT_NEAR(ComputeGammaDistribution(15.507313055865453, 8), 0.95, 1e-14);
    EXPECT_NEAR(ComputeGammaDistribution(7.344121497701792, 8), 0.5, 1e-14);
}

TEST(SpeedLaws, ADensityIsTheSlopeOfItsDistribution)
{
    for (const double speed : {0.3, 1.0, 2.5})
    {
        EXPECT_NEAR(Integrate([](double v) { return ComputeRayleighDensity(v, 1.4); }, speed),
                    ComputeRayleighDistribution(speed, 1.4), 1e-9);
        EXPECT_NEAR(Integrate([](double v) { return ComputeGammaDensity(v, 1.1); }, speed),
                    ComputeGammaDistribution(speed, 1.1), 1e-9);
    }
}

TEST(SpeedLaws, TheMeanIsTheParameter)
{
    EXPECT_NEAR(Integrate([](double v) { return v * ComputeGammaDensity(v, 1.1); }, 40), 1.1, 1e-6);
    EXPECT_NEAR(Integrate([](double v) { return v * v * ComputeRayleighDensity(v, 1.4); }, 20), 1.4, 1e-6);
}

TEST(SpeedLaws, ASampleThatFitsItsLawExactlyHasTheDistanceOfHalfAStep)
{
    const auto rayleigh = [](double speed) { return ComputeRayleighDistribution(speed, 1); };
    EXPECT_NEAR(ComputeKolmogorovDistance(DrawExactly(10), rayleigh), 0.05, 1e-12);
    EXPECT_NEAR(ComputeKolmogorovDistance(DrawExactly(1000), rayleigh), 0.0005, 1e-12);
}

TEST(SpeedLaws, TheDistanceIsTheLargestOnEitherSideOfAStep)
{
    const auto uniform = [](double value) { return value; };
    EXPECT_DOUBLE_EQ(ComputeKolmogorovDistance({0.75}, uniform), 0.75);
    EXPECT_DOUBLE_EQ(ComputeKolmogorovDistance({0.125}, uniform), 0.875);
    EXPECT_DOUBLE_EQ(ComputeKolmogorovDistance({0.5, 0.5, 0.5, 0.5}, uniform), 0.5);
    EXPECT_EQ(ComputeKolmogorovDistance({}, uniform), 0);
}

TEST(SpeedDistribution, HasTheMomentsAndTheHistogramOfAllAtoms)
{
    const std::optional<CSpeedDistribution> speeds = ComputeSpeedDistribution(MakeMoving({3, 0, 1, 4}));
    ASSERT_TRUE(speeds);
    EXPECT_DOUBLE_EQ(speeds->mean, 2);
    EXPECT_DOUBLE_EQ(speeds->meanSquare, 6.5);
    EXPECT_EQ(speeds->histogram.GetBinCount(), 4U);
    EXPECT_EQ(speeds->histogram.GetFaster(), 0U);
    EXPECT_EQ(speeds->histogram.GetTotal(), 4U);
    EXPECT_NEAR(speeds->histogram.GetRange(), 4, 1e-12);
    // By hand: the largest differences are at 1. Two of four atoms are at most so fast.
    EXPECT_NEAR(speeds->rayleighDistance, 0.5 - (1 - std::exp(-1 / 6.5)), 1e-15);
    EXPECT_NEAR(speeds->gammaDistance, 0.5 - ComputeGammaDistribution(1, 2), 1e-15);
}

TEST(SpeedDistribution, OneAtomHasOne)
{
    const std::optional<CSpeedDistribution> speeds = ComputeSpeedDistribution(MakeMoving({2}));
    ASSERT_TRUE(speeds);
    EXPECT_EQ(speeds->histogram.GetTotal(), 1U);
    EXPECT_NEAR(speeds->rayleighDistance, 1 - std::exp(-1.0), 1e-15);
}

TEST(SpeedDistribution, ThereIsNoneForAtomsAtRestAndForSpeedsThatAreNotFinite)
{
    EXPECT_FALSE(ComputeSpeedDistribution(MakeMoving({0, 0})));
    EXPECT_FALSE(ComputeSpeedDistribution(MakeMoving({1, std::numeric_limits<float>::infinity()})));
    EXPECT_FALSE(ComputeSpeedDistribution(MakeMoving({1, std::numeric_limits<float>::quiet_NaN()})));
}
