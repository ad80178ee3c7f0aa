#include "headless/console/HeadlessError.h"
#include "headless/files/CTextSink.h"
#include "headless/observed/CStatsWriter.h"
#include "settings/CSettings.h"
#include "tests/headless/HeadlessTesting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

using testing::HasSubstr;

namespace
{

constexpr CSize<int> c_World = {20, 10};

// An atom of radius 1 that goes to and fro between the left and the right wall of the world, as if iterated: it moves
// by 4 and so bounces at every fourth or fifth move.
CAtoms MoveBetweenWalls(CAtoms atoms)
{
    CAtom& atom = atoms[0];
    atom.x += atom.vx;
    if (atom.x < 1 || atom.x > 19)
    {
        atom.x = atom.x < 1 ? 2 - atom.x : 38 - atom.x;
        atom.vx = -atom.vx;
    }
    return atoms;
}

CAtoms MakeStart()
{
    CAtoms atoms = MakeAtoms({MakeAtom(10, 5, 1)});
    atoms[0].vx = 4;
    return atoms;
}

// Shows a writer the iterations after uFrom, up to uTo; the run has uLast.
void Show(CStatsWriter& writer, CAtoms& atoms, std::uint64_t uFrom, std::uint64_t uTo, std::uint64_t uLast)
{
    const CSettings settings;
    for (std::uint64_t u = uFrom + 1; u <= uTo; ++u)
    {
        writer.Prepare(atoms);
        atoms = MoveBetweenWalls(std::move(atoms));
        writer.Observe({u, static_cast<std::uint32_t>(u), u == uLast, atoms, settings});
    }
}

std::string GetTable(const CStatsTable& table, std::uint64_t uIterations)
{
    const CTemporaryFolder folder;
    CStatsWriter writer(folder.GetPath("a.csv"), nullptr, table);
    CAtoms atoms = MakeStart();
    Show(writer, atoms, 0, uIterations, uIterations);
    writer.Commit();
    return ReadFile(folder.GetPath("a.csv"));
}

const std::string c_sSix = "iteration,collisions,min_velocity,max_velocity,tot_velocity,avg_velocity";

} // namespace

TEST(StatsWriter, HasARowForEachIterationUnlessToldOtherwise)
{
    EXPECT_EQ(GetTable({}, 3), c_sSix + "\n1,1,0,0,0,0\n2,2,0,0,0,0\n3,3,0,0,0,0\n");
}

TEST(StatsWriter, HasARowEverySoManyIterationsAndOneForTheLast)
{
    EXPECT_EQ(GetTable({3, false, c_World}, 8), c_sSix + "\n3,6,0,0,0,0\n6,15,0,0,0,0\n8,15,0,0,0,0\n");
    EXPECT_EQ(GetTable({3, false, c_World}, 6), c_sSix + "\n3,6,0,0,0,0\n6,15,0,0,0,0\n");
    EXPECT_EQ(GetTable({100, false, c_World}, 4), c_sSix + "\n4,10,0,0,0,0\n");
    EXPECT_EQ(GetTable({100, false, c_World}, 0), c_sSix + "\n");
}

// The atom is at 10, 14, 18, then it bounces: 16, 12, 8, 4, and at the left wall: 2, 6, 10, ...
TEST(StatsWriter, ObservablesHaveTheBouncesSinceTheRowBefore)
{
    EXPECT_EQ(GetTable({4, true, c_World}, 9),
              c_sSix + ",kinetic_energy,momentum_x,momentum_y,left_bounces,right_bounces,top_bounces,bottom_bounces,"
                       "left_impulse,right_impulse,top_impulse,bottom_impulse,pressure\n"
                       "4,10,0,0,0,0,8,-4,0,0,1,0,0,0,8,0,0,0.03333333333333333\n"
                       "8,26,0,0,0,0,8,4,0,1,0,0,0,8,0,0,0,0.03333333333333333\n"
                       "9,9,0,0,0,0,8,4,0,0,0,0,0,0,0,0,0,0\n");
}

TEST(StatsWriter, ContinuesWhereverTheRunWasInterrupted)
{
    for (const bool bObservables : {false, true})
    {
        const CStatsTable table = {7, bObservables, c_World};
        const std::string sWhole = GetTable(table, 30);
        for (std::uint64_t uCut = 0; uCut <= 30; ++uCut)
        {
            const CTemporaryFolder folder;
            CAtoms atoms = MakeStart();
            std::string sProgress;
            {
                CStatsWriter first(folder.GetPath("a.csv"), nullptr, table);
                Show(first, atoms, 0, uCut, 30);
                first.Keep(true);
                sProgress = first.GetProgress();
                CAtoms lost = MakeStart();
                first.Prepare(lost); // of an iteration that nobody sees
                EXPECT_EQ(first.GetProgress(), sProgress);
            }
            CStatsWriter second(folder.GetPath("a.csv"), nullptr, table);
            second.Continue(sProgress);
            Show(second, atoms, uCut, 30, 30);
            second.Commit();

            EXPECT_EQ(ReadFile(folder.GetPath("a.csv")), sWhole) << uCut;
        }
    }
}

// The row of the last iteration of a piece is not due in the whole run.
TEST(StatsWriter, APieceThatEndsBetweenTwoRowsLeavesNoTraceInTheWhole)
{
    const CStatsTable table = {7, true, c_World};
    const CTemporaryFolder folder;
    const std::string sPath = folder.GetPath("a.csv");
    CAtoms atoms = MakeStart();
    CStatsWriter first(sPath, nullptr, table);
    Show(first, atoms, 0, 10, 10);
    const std::string sProgress = first.GetProgress();
    first.Commit();
    EXPECT_EQ(ReadFile(sPath), GetTable(table, 10));
    CStatsWriter nothing(sPath, nullptr, table);
    nothing.Continue(sProgress);
    nothing.Commit();
    EXPECT_EQ(ReadFile(sPath), GetTable(table, 10));
    CStatsWriter second(sPath, nullptr, table);
    second.Continue(sProgress);
    Show(second, atoms, 10, 20, 20);
    second.Commit();

    EXPECT_EQ(ReadFile(sPath), GetTable(table, 20));
}

TEST(StatsWriter, RefusesProgressThatIsCutOffOrTooLong)
{
    CTextSink sink;
    CStatsWriter writer("", &sink, {});
    const std::string sProgress = writer.GetProgress();
    for (const std::string& sDamaged : {sProgress.substr(0, sProgress.size() - 1), sProgress + '\0'})
    {
        CStatsWriter next("", &sink, {});
        EXPECT_THROW(next.Continue(sDamaged), CHeadlessError);
    }
}
