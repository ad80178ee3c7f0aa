#include "headless/states/StateHash.h"
#include "tests/headless/HeadlessTesting.h"

#include <gtest/gtest.h>

namespace
{

CAtom MakeMovingAtom(float x, float y, float vx, float vy, std::uint8_t uRadius)
{
    CAtom atom = MakeAtom(x, y, uRadius);
    atom.vx = vx;
    atom.vy = vy;
    return atom;
}

} // namespace

// The expected values were computed apart from this program, from the description of the bytes.
TEST(StateHash, IsFnvOverTheBytesOfEveryAtom)
{
    const CAtom first = MakeMovingAtom(1.5F, -2.25F, 0.5F, 0.125F, 7);
    const CAtom second = MakeMovingAtom(3.25F, 0, -1, 2, 255);

    EXPECT_EQ(ComputeStateHash(MakeAtoms({first})), 0x5666b08c4bd8f704U);
    EXPECT_EQ(ComputeStateHash(MakeAtoms({first, second})), 0xe9f4fe5779d79102U);
    EXPECT_EQ(ComputeStateHash(CAtoms()), 0xcbf29ce484222325U);
}

TEST(StateHash, ChangesWithEveryStoredValueAndTheOrder)
{
    const CAtom first = MakeMovingAtom(1, 2, 3, 4, 5);
    const CAtom second = MakeMovingAtom(1, 2, 3, 4, 6);
    const std::uint64_t uHash = ComputeStateHash(MakeAtoms({first, second}));

    EXPECT_NE(ComputeStateHash(MakeAtoms({second, first})), uHash);
    EXPECT_NE(ComputeStateHash(MakeAtoms({MakeMovingAtom(2, 2, 3, 4, 5), second})), uHash);
    EXPECT_NE(ComputeStateHash(MakeAtoms({MakeMovingAtom(1, 3, 3, 4, 5), second})), uHash);
    EXPECT_NE(ComputeStateHash(MakeAtoms({MakeMovingAtom(1, 2, 4, 4, 5), second})), uHash);
    EXPECT_NE(ComputeStateHash(MakeAtoms({MakeMovingAtom(1, 2, 3, -4, 5), second})), uHash);
    EXPECT_NE(ComputeStateHash(MakeAtoms({MakeAtom(-0.0F, 1, 1)})),
              ComputeStateHash(MakeAtoms({MakeAtom(0.0F, 1, 1)})));
}

TEST(StateHash, DoesNotDependOnTheSpeedWhichFollowsFromTheVelocity)
{
    CAtom other = MakeMovingAtom(1, 2, 3, 4, 5);
    other.speed = 99;

    EXPECT_EQ(ComputeStateHash(MakeAtoms({other})), ComputeStateHash(MakeAtoms({MakeMovingAtom(1, 2, 3, 4, 5)})));
}
