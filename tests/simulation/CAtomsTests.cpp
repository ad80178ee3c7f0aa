#include "simulation/CAtoms.h"

#include "tests/simulation/CAllocationWatch.h"

#include <gtest/gtest.h>

#include <limits>
#include <new>
#include <stdexcept>
#include <type_traits>
#include <utility>

namespace
{

TEST(Atom, ARadiusAbove255CannotBeStored)
{
    static_assert(std::is_same_v<decltype(CAtom::radius), std::uint8_t>);
    EXPECT_EQ(std::numeric_limits<decltype(CAtom::radius)>::max(), 255);
}

TEST(Atom, ANewAtomIsAllZero)
{
    const CAtom atom;
    EXPECT_EQ(atom.x, 0.0F);
    EXPECT_EQ(atom.y, 0.0F);
    EXPECT_EQ(atom.speed, 0.0F);
    EXPECT_EQ(atom.vx, 0.0F);
    EXPECT_EQ(atom.vy, 0.0F);
    EXPECT_EQ(atom.radius, 0);
    EXPECT_EQ(atom.reserved, 0);
}

TEST(Atoms, AnEmptySetHasNoAtomsAndNoVelocities)
{
    const CAtoms atoms;
    EXPECT_EQ(atoms.GetCount(), 0);
    EXPECT_EQ(atoms.GetAtoms(), nullptr);
    EXPECT_EQ(atoms.GetVelocities(), CVelocityStatistics{});
}

TEST(Atoms, AllocateMakesThatManyAtomsWithEveryFieldZero)
{
    CAtoms atoms;
    atoms.Allocate(1000);
    ASSERT_EQ(atoms.GetCount(), 1000);
    for (std::int32_t i = 0; i < atoms.GetCount(); ++i)
    {
        EXPECT_EQ(atoms[i].x, 0.0F);
        EXPECT_EQ(atoms[i].vy, 0.0F);
        EXPECT_EQ(atoms[i].radius, 0);
    }
}

TEST(Atoms, AllocatingAgainDropsTheOldAtomsAndTheirVelocities)
{
    CAtoms atoms;
    atoms.Allocate(10);
    atoms[3].x = 5;
    atoms.SetVelocities({1, 2, 3, 4});
    atoms.Allocate(4);
    EXPECT_EQ(atoms.GetCount(), 4);
    EXPECT_EQ(atoms[3].x, 0.0F);
    EXPECT_EQ(atoms.GetVelocities(), CVelocityStatistics{});
}

TEST(Atoms, ANegativeCountThrowsLengthErrorAndLeavesAnEmptySet)
{
    CAtoms atoms;
    atoms.Allocate(10);
    EXPECT_THROW(atoms.Allocate(-1), std::length_error);
    EXPECT_EQ(atoms.GetCount(), 0);
    EXPECT_EQ(atoms.GetAtoms(), nullptr);
}

TEST(Atoms, OutOfMemoryLeavesAnEmptySetThatIsUsableAgain)
{
    CAtoms atoms;
    atoms.Allocate(10);
    atoms.SetVelocities({1, 2, 3, 4});
    {
        const CAllocationLimit limit(1000);
        EXPECT_THROW(atoms.Allocate(1000), std::bad_alloc);
        EXPECT_EQ(atoms.GetCount(), 0);
        EXPECT_EQ(atoms.GetAtoms(), nullptr);
        EXPECT_EQ(atoms.GetVelocities(), CVelocityStatistics{});
    }
    atoms.Allocate(1000);
    EXPECT_EQ(atoms.GetCount(), 1000);
}

TEST(Atoms, MovingASetLeavesTheOldOneEmpty)
{
    CAtoms atoms;
    atoms.Allocate(3);
    atoms[2].x = 7;
    atoms.SetVelocities({1, 2, 3, 4});
    CAtoms moved(std::move(atoms));
    EXPECT_EQ(moved.GetCount(), 3);
    EXPECT_EQ(moved[2].x, 7.0F);
    EXPECT_EQ(moved.GetTotVelocity(), 3.0F);
    // The test is about the moved-from object.
    EXPECT_EQ(atoms.GetCount(), 0); // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
    atoms = std::move(moved);
    EXPECT_EQ(atoms.GetCount(), 3);
    EXPECT_EQ(atoms.GetAvgVelocity(), 4.0F);
}

} // namespace
