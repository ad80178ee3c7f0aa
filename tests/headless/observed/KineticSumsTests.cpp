#include "headless/observed/KineticSums.h"
#include "tests/headless/HeadlessTesting.h"

#include <gtest/gtest.h>

namespace
{

CAtom MakeMoving(float vx, float vy)
{
    CAtom atom = MakeAtom(10, 10, 1);
    atom.vx = vx;
    atom.vy = vy;
    return atom;
}

} // namespace

TEST(KineticSums, TheEnergyIsTheMeanOfHalfTheSquaredSpeed)
{
    EXPECT_EQ(ComputeKineticEnergy(MakeAtoms({MakeMoving(3, -4)})), 12.5);
    EXPECT_EQ(ComputeKineticEnergy(MakeAtoms({MakeMoving(3, -4), MakeMoving(0, 0), MakeMoving(1, 1)})), 4.5);
}

TEST(KineticSums, TheMomentumIsTheSumOfTheVelocities)
{
    const CMomentum momentum = ComputeMomentum(MakeAtoms({MakeMoving(3, -4), MakeMoving(0.5F, -1), MakeMoving(-1, 2)}));

    EXPECT_EQ(momentum.x, 2.5);
    EXPECT_EQ(momentum.y, -3.0);
}

TEST(KineticSums, WithoutAtomsTheyAreZero)
{
    EXPECT_EQ(ComputeKineticEnergy(CAtoms()), 0.0);
    EXPECT_EQ(ComputeMomentum(CAtoms()).x, 0.0);
    EXPECT_EQ(ComputeMomentum(CAtoms()).y, 0.0);
}

// A float would lose the small ones, and overflow.
TEST(KineticSums, AreAddedUpInDoublePrecision)
{
    const CAtoms atoms = MakeAtoms({MakeMoving(16'777'216, 3e38F), MakeMoving(1, 3e38F), MakeMoving(1, 0)});

    EXPECT_EQ(ComputeMomentum(atoms).x, 16'777'218.0);
    EXPECT_EQ(ComputeMomentum(atoms).y, 2 * static_cast<double>(3e38F));
    EXPECT_GT(ComputeKineticEnergy(atoms), 1e75);
}
