#include "view/AtomScene.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <utility>
#include <vector>

namespace
{

using CDrawn = std::vector<std::pair<const CAtom*, int>>;

CAtom MakeAtom(float fX, float fY, float fSpeed)
{
    CAtom atom;
    atom.x = fX;
    atom.y = fY;
    atom.speed = fSpeed;
    atom.radius = 3;
    return atom;
}

CAtomScene MakeScene(const std::vector<CAtom>& atoms)
{
    CAtomScene scene;
    scene.pAtoms = atoms.data();
    scene.count = static_cast<std::int32_t>(atoms.size());
    scene.fAverageSpeed = 1.0F;
    scene.settings[0].dFactor = 0.75;
    scene.settings[2].dFactor = 1.25;
    scene.rcVisible = CRect{0, 0, 700, 600};
    return scene;
}

} // namespace

TEST(AtomScene, SpeedModeKeepsTheArrayOrderAcrossTheClasses)
{
    const std::vector<CAtom> atoms{MakeAtom(1.0F, 1.0F, 2.0F), MakeAtom(2.0F, 2.0F, 0.1F), MakeAtom(3.0F, 3.0F, 1.0F),
                                   MakeAtom(9000.0F, 3.0F, 1.0F), MakeAtom(4.0F, 4.0F, 1.25F)};
    CDrawn drawn;
    DrawAtoms_Speed(MakeScene(atoms), [&](const CAtom& atom, int iClass) { drawn.emplace_back(&atom, iClass); });
    EXPECT_EQ(drawn, (CDrawn{{&atoms[0], 2}, {&atoms[1], 0}, {&atoms[2], 1}, {&atoms[4], 2}}));
}

TEST(AtomScene, FixedModeFollowsTheIndexInTheArray)
{
    const std::vector<CAtom> atoms(10, MakeAtom(5.0F, 5.0F, 1.0F));
    CAtomScene scene = MakeScene(atoms);
    scene.settings[0].dFactor = 2.0;
    scene.settings[1].dFactor = 5.0;
    scene.settings[2].dFactor = 3.0;
    std::vector<int> classes;
    DrawAtoms_Fixed(scene, [&](const CAtom&, int iClass) { classes.push_back(iClass); });
    EXPECT_EQ(classes, (std::vector<int>{0, 0, 1, 1, 1, 1, 1, 2, 2, 2}));
}

TEST(AtomScene, CulledAtomsStillCountInTheRunsOfFixedMode)
{
    std::vector<CAtom> atoms(6, MakeAtom(5.0F, 5.0F, 1.0F));
    atoms[0].x = 9000.0F;
    atoms[3].x = 9000.0F;
    CAtomScene scene = MakeScene(atoms);
    scene.settings[0].dFactor = 2.0;
    scene.settings[1].dFactor = 2.0;
    CDrawn drawn;
    DrawAtoms_Fixed(scene, [&](const CAtom& atom, int iClass) { drawn.emplace_back(&atom, iClass); });
    EXPECT_EQ(drawn, (CDrawn{{&atoms[1], 0}, {&atoms[2], 1}, {&atoms[4], 2}, {&atoms[5], 2}}));
}

TEST(AtomScene, NoAtomsDrawNothing)
{
    const CAtomScene scene;
    DrawAtoms_Speed(scene, [](const CAtom&, int) { FAIL(); });
    DrawAtoms_Fixed(scene, [](const CAtom&, int) { FAIL(); });
}

// A view of 700 x 600 in the middle of a world of 9,999 x 9,999 shows less than half a percent of it.
TEST(AtomScene, InALargeScrolledWorldOnlyTheAtomsInTheViewAreDrawn)
{
    std::mt19937_64 random(5);
    std::uniform_real_distribution<float> anywhere(3.0F, 9996.0F);
    std::vector<CAtom> atoms;
    std::size_t uInside = 0;
    std::size_t uNear = 0;
    for (int i = 0; i < 100'000; ++i)
    {
        atoms.push_back(MakeAtom(anywhere(random), anywhere(random), 1.0F));
        const float fX = atoms.back().x - 5000.0F;
        const float fY = atoms.back().y - 4000.0F;
        uInside += fX > -3.0F && fX < 703.0F && fY > -3.0F && fY < 603.0F ? 1U : 0U;
        uNear += fX > -6.0F && fX < 706.0F && fY > -6.0F && fY < 606.0F ? 1U : 0U;
    }
    CAtomScene scene = MakeScene(atoms);
    scene.ptWorld = CPoint<int>{-5000, -4000};
    std::size_t uDrawn = 0;
    DrawAtoms_Speed(scene, [&](const CAtom&, int) { ++uDrawn; });
    EXPECT_GE(uDrawn, uInside);
    EXPECT_LE(uDrawn, uNear);
    EXPECT_GT(uInside, 300U);
}
