#include "headless/states/Checkpoint.h"
#include "tests/headless/HeadlessTesting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

using testing::HasSubstr;

namespace
{

using CArguments = std::vector<std::string>;
using CNames = std::vector<std::string>;

CArguments Join(CArguments first, const CArguments& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

// The summary without the times, which differ from run to run.
std::string GetSummary(const CArguments& arguments)
{
    const CProgramResult result = RunProgram(arguments);
    EXPECT_EQ(result.exitCode, 0) << result.err;
    std::istringstream lines(result.out);
    std::string sSummary;
    for (std::string sLine; std::getline(lines, sLine);)
    {
        sSummary += sLine.find("time (ms)") != std::string::npos ? "" : sLine + '\n';
    }
    return sSummary;
}

std::string GetUsageError(const CArguments& arguments)
{
    const CProgramResult result = RunProgram(arguments);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.out, "");
    return result.err.substr(0, result.err.find('\n'));
}

// A run in one piece and in three gives the same files and the same summary.
void ExpectSameInPieces(const CArguments& world, const CArguments& table = {})
{
    const CTemporaryFolder folder;
    const auto outputs = [&folder, &table](const std::string& sName) {
        return Join({"--stats", folder.GetPath(sName + "-stats.csv"), "--save-state", folder.GetPath(sName + ".csv"),
                     "--checkpoint", folder.GetPath(sName + ".ckpt")},
                    table);
    };
    const std::string sWhole = GetSummary(Join(Join(world, outputs("whole")), {"--iterations", "100"}));
    const CArguments resume = Join({"--resume", folder.GetPath("part.ckpt")}, outputs("part"));
    GetSummary(Join(Join(world, outputs("part")), {"--iterations", "1"}));
    GetSummary(Join(resume, {"--iterations", "29"}));

    EXPECT_EQ(GetSummary(Join(resume, {"--iterations", "70"})), sWhole);
    for (const std::string sEnd : {".csv", "-stats.csv", ".ckpt"})
    {
        EXPECT_EQ(ReadFile(folder.GetPath("part" + sEnd)), ReadFile(folder.GetPath("whole" + sEnd))) << sEnd;
    }
    EXPECT_EQ(folder.GetNames().size(), 6U);
}

// A run of 10 iterations with a checkpoint.
class Resume : public testing::Test
{
protected:
    Resume() { GetSummary({"--seed", "42", "--iterations", "10", "--checkpoint", sCheckpoint, "--stats", sStats}); }

    CArguments Continue(const CArguments& arguments) const
    {
        return Join({"--resume", sCheckpoint, "--iterations", "5"}, arguments);
    }

    std::string GetContradiction(const CArguments& arguments) const { return GetUsageError(Continue(arguments)); }

    // The statistics of the first iterations of that run, in one piece.
    std::string GetStats(const std::string& sIterations) const
    {
        GetSummary({"--seed", "42", "--iterations", sIterations, "--stats", folder.GetPath("whole.csv")});
        return ReadFile(folder.GetPath("whole.csv"));
    }

    const CTemporaryFolder folder;
    const std::string sCheckpoint = folder.GetPath("run.ckpt");
    const std::string sStats = folder.GetPath("stats.csv");
};

} // namespace

TEST(Experiment, ARunInPiecesGivesTheWholeRun)
{
    ExpectSameInPieces({"--seed", "11", "--atoms", "900", "--width", "600", "--height", "400", "--max-radius", "9",
                        "--colour-mode", "fixed", "--factors", "25%,,50%", "--background", "102030"});
}

// The pieces end between two rows.
TEST(Experiment, ARunInPiecesGivesTheWholeTable)
{
    ExpectSameInPieces({"--seed", "11", "--atoms", "500", "--width", "300"}, {"--stats-every", "20", "--observables"});
    ExpectSameInPieces({"--seed", "11", "--atoms", "1"}, {"--stats-every", "1000", "--observables"});
}

// Centres that coincide are moved apart by random numbers, long after the first piece.
TEST(Experiment, ARunInPiecesGivesTheWholeRunWhereRandomNumbersAreDrawn)
{
    ExpectSameInPieces({"--seed", "3", "--atoms", "700", "--start-at", "250,250", "--min-radius", "1"});
    const CTemporaryFolder folder;
    const std::string sMeeting = folder.WriteFile("a.csv", "x,y,vx,vy,radius\n100,50,1,0,1\n300,50,-1,0,1\n"
                                                           "200,150,0,-1,1\n200,300,0,-2.5,1\n");
    ExpectSameInPieces({"--seed", "3", "--load-state", sMeeting, "--width", "400", "--height", "400"});
}

TEST_F(Resume, BringsTheWorldAndAllowsOptionsThatRepeatIt)
{
    EXPECT_EQ(GetSummary(Continue({"--width",       "512",        "--height",     "512",
                                   "--atoms",       "256",        "--min-radius", "3",
                                   "--max-radius",  "5",          "--seed",       "42",
                                   "--colour-mode", "speed",      "--colours",    "FF0000,808080,00FF00",
                                   "--factors",     "0.75,,1.25", "--background", "000000"})),
              GetSummary({"--seed", "42", "--iterations", "15"}));
}

TEST_F(Resume, RefusesOptionsThatContradictTheCheckpoint)
{
    const std::string sContradicts = ": contradicts the checkpoint of --resume, which holds ";
    EXPECT_EQ(GetContradiction({"--width", "513"}), "error: --width" + sContradicts + "512");
    EXPECT_EQ(GetContradiction({"--height", "513"}), "error: --height" + sContradicts + "512");
    EXPECT_EQ(GetContradiction({"--atoms", "255"}), "error: --atoms" + sContradicts + "256");
    EXPECT_EQ(GetContradiction({"--min-radius", "2"}), "error: --min-radius" + sContradicts + "3");
    EXPECT_EQ(GetContradiction({"--max-radius", "6"}), "error: --max-radius" + sContradicts + "5");
    EXPECT_EQ(GetContradiction({"--seed", "41"}), "error: --seed" + sContradicts + "42");
    EXPECT_EQ(GetContradiction({"--start-at", "50,50"}), "error: --start-at" + sContradicts + "the start random");
    EXPECT_EQ(GetContradiction({"--colour-mode", "fixed"}), "error: --colour-mode" + sContradicts + "the other mode");
    EXPECT_EQ(GetContradiction({"--colours", "FF0000,808080,00FF01"}),
              "error: --colours" + sContradicts + "other colours");
    EXPECT_EQ(GetContradiction({"--factors", "1,,2"}), "error: --factors" + sContradicts + "other factors");
    EXPECT_EQ(GetContradiction({"--background", "000001"}), "error: --background" + sContradicts + "another colour");
    EXPECT_THAT(GetContradiction({"--load-state", "a.csv"}), HasSubstr("--load-state: is not allowed with --resume"));
    EXPECT_THAT(GetContradiction({"--settings", "a.ini"}), HasSubstr("--settings: is not allowed with --resume"));
    EXPECT_EQ(folder.GetNames(), (CNames{"run.ckpt", "stats.csv"}));
}

TEST_F(Resume, LeavesOutRowsThatAreNewerThanTheCheckpoint)
{
    folder.WriteFile("stats.csv", GetStats("13"));
    GetSummary(Continue({"--stats", sStats}));

    EXPECT_EQ(ReadFile(sStats), GetStats("15"));
}

TEST_F(Resume, TakesThePartialFileBeforeTheOldOne)
{
    folder.WriteFile("stats.csv.partial", GetStats("12"));
    folder.WriteFile("stats.csv", "of another run");
    GetSummary(Continue({"--stats", sStats}));

    EXPECT_EQ(ReadFile(sStats), GetStats("15"));
    EXPECT_EQ(folder.GetNames(), (CNames{"run.ckpt", "stats.csv", "whole.csv"}));
}

TEST_F(Resume, TakesTheFileBesideAPartialOneThatWasOnlyBegun)
{
    folder.WriteFile("stats.csv.partial", GetStats("4"));
    GetSummary(Continue({"--stats", sStats}));

    EXPECT_EQ(ReadFile(sStats), GetStats("15"));
}

TEST_F(Resume, RefusesStatisticsOfAnotherRunAndLeavesThem)
{
    for (const std::string& sRows : {std::string("of another run"), GetStats("9")})
    {
        folder.WriteFile("stats.csv", sRows);
        const CProgramResult result = RunProgram(Continue({"--stats", sStats}));

        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.err, "error: " + sStats + ": cannot be continued: neither it nor " + sStats +
                                  ".partial begins with what the run had written before its checkpoint\n");
        EXPECT_EQ(ReadFile(sStats), sRows);
    }
}

TEST_F(Resume, RefusesStatisticsThatWouldHaveAGap)
{
    GetSummary(Continue({"--checkpoint", sCheckpoint}));

    EXPECT_THAT(GetContradiction({"--stats", sStats}),
                HasSubstr("--stats: contradicts the checkpoint of --resume: a part of the run was without it, from "
                          "iteration 11 to iteration 15"));
}

TEST_F(Resume, WritesOnlyTheNewRowsToStandardOutput)
{
    const std::string sFirst = ReadFile(sStats);
    const CProgramResult result = RunProgram(Continue({"--stats", "-"}));

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(sFirst + result.out, GetStats("15"));
}

TEST_F(Resume, BeginsStatisticsThatTheRunDidNotHave)
{
    GetSummary({"--seed", "42", "--iterations", "10", "--checkpoint", sCheckpoint});
    GetSummary(Continue({"--stats", sStats}));

    const std::string sRows = ReadFile(sStats);
    EXPECT_EQ(sRows.substr(0, sRows.find(',', sRows.find('\n'))),
              "iteration,collisions,min_velocity,max_velocity,tot_velocity,avg_velocity\n11");
}

TEST_F(Resume, NumbersThePicturesThroughTheWholeRun)
{
    GetSummary(Continue({"--picture", folder.GetPath("gas.png"), "--picture-every", "4"}));

    EXPECT_EQ(folder.GetNames(), (CNames{"gas-12.png", "gas.png", "run.ckpt", "stats.csv"}));
}

TEST_F(Resume, WithoutIterationsShowsTheCheckpoint)
{
    EXPECT_EQ(GetSummary({"--resume", sCheckpoint, "--iterations", "0"}),
              GetSummary({"--seed", "42", "--iterations", "10"}));
}

TEST(CheckpointOptions, AreCheckedTogether)
{
    EXPECT_EQ(GetUsageError({"--checkpoint-every", "5"}),
              "error: --checkpoint-every: needs --checkpoint, which names the file");
    EXPECT_EQ(GetUsageError({"--checkpoint", "-"}),
              "error: --checkpoint: standard output is not allowed; allowed is the name of a file");
    EXPECT_THAT(GetUsageError({"--checkpoint", "a.csv", "--stats", "./a.csv"}), HasSubstr("is the same file as"));
}

TEST(Experiment, AnInterruptedRunWithACheckpointIsContinuedWithoutALoss)
{
    const CTemporaryFolder folder;
    const std::atomic<int> interrupted = 143;
    const CArguments outputs = {"--checkpoint", folder.GetPath("run.ckpt"), "--stats", folder.GetPath("stats.csv")};
    const CProgramResult result =
        RunProgram(Join({"--seed", "42", "--iterations", "10"}, outputs), false, &interrupted);

    EXPECT_EQ(result.exitCode, 143);
    EXPECT_EQ(result.err, "error: interrupted after 0 of 10 iterations; --resume " + folder.GetPath("run.ckpt") +
                              " continues the run\n");
    EXPECT_EQ(folder.GetNames(), CNames{"run.ckpt"});
    EXPECT_EQ(GetSummary(Join({"--resume", folder.GetPath("run.ckpt"), "--iterations", "10"}, outputs)),
              GetSummary({"--seed", "42", "--iterations", "10", "--stats", folder.GetPath("whole.csv")}));
    EXPECT_EQ(ReadFile(folder.GetPath("stats.csv")), ReadFile(folder.GetPath("whole.csv")));
}
