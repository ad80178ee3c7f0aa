#include "headless/files/CByteWriter.h"
#include "tests/headless/HeadlessTesting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

using testing::HasSubstr;

namespace
{

using CArguments = std::vector<std::string>;

// The rows of a table without its header, as numbers.
std::vector<std::vector<double>> ReadRows(const std::string& sTable)
{
    std::vector<std::vector<double>> rows;
    std::istringstream lines(sTable);
    std::string sLine;
    std::getline(lines, sLine);
    while (std::getline(lines, sLine))
    {
        rows.emplace_back();
        std::istringstream cells(sLine);
        for (std::string sCell; std::getline(cells, sCell, ',');)
        {
            rows.back().push_back(std::stod(sCell));
        }
    }
    return rows;
}

// The table of a run that succeeds.
std::string GetStats(CArguments arguments)
{
    arguments.insert(arguments.end(), {"--stats", "-"});
    const CProgramResult result = RunProgram(arguments);
    EXPECT_EQ(result.exitCode, 0) << result.err;
    return result.out;
}

std::string GetUsageError(const CArguments& arguments)
{
    const CProgramResult result = RunProgram(arguments);
    EXPECT_EQ(result.exitCode, 2);
    return result.err.substr(0, result.err.find('\n'));
}

constexpr std::size_t c_uFirstVelocity = 2;
constexpr std::size_t c_uPlainColumns = 6;
constexpr std::size_t c_uFirstBounces = 9;
constexpr std::size_t c_uColumns = 18;

} // namespace

TEST(Stats, RowsOfManyIterationsSumUpTheirCollisionsAndBounces)
{
    const CArguments run = {"--seed", "4", "--atoms", "300", "--width", "300", "--iterations", "50", "--observables"};
    CArguments coarse = run;
    coarse.insert(coarse.end(), {"--stats-every", "20"});
    const std::vector<std::vector<double>> fine = ReadRows(GetStats(run));
    const std::vector<std::vector<double>> rows = ReadRows(GetStats(coarse));

    ASSERT_EQ(fine.size(), 50U);
    ASSERT_EQ(rows.size(), 3U);
    std::size_t uFrom = 0;
    for (const std::vector<double>& row : rows)
    {
        const auto uTo = static_cast<std::size_t>(row[0]);
        ASSERT_EQ(row.size(), c_uColumns);
        std::vector<double> sums(c_uColumns);
        for (std::size_t u = uFrom; u < uTo; ++u)
        {
            for (std::size_t uColumn = 0; uColumn < c_uColumns; ++uColumn)
            {
                sums[uColumn] += fine[u][uColumn];
            }
        }
        EXPECT_EQ(row[1], sums[1]);
        for (std::size_t uColumn = c_uFirstVelocity; uColumn < c_uFirstBounces; ++uColumn)
        {
            EXPECT_EQ(row[uColumn], fine[uTo - 1][uColumn]) << "not that of the moment: column " << uColumn;
        }
        for (std::size_t uColumn = c_uFirstBounces; uColumn + 1 < c_uColumns; ++uColumn)
        {
            EXPECT_NEAR(row[uColumn], sums[uColumn], 1e-9) << uColumn;
        }
        EXPECT_NEAR(row.back(), sums.back() / static_cast<double>(uTo - uFrom), 1e-12);
        uFrom = uTo;
    }
}

TEST(Stats, ObservablesLeaveTheSixColumnsAsTheyAre)
{
    const CArguments run = {"--seed", "4", "--iterations", "20"};
    CArguments more = run;
    more.insert(more.end(), {"--observables"});
    std::vector<std::vector<double>> rows = ReadRows(GetStats(more));
    for (std::vector<double>& row : rows)
    {
        row.resize(c_uPlainColumns);
    }

    EXPECT_EQ(rows, ReadRows(GetStats(run)));
}

// The same bytes on every machine and with any number of threads.
TEST(Stats, ATableHasTheSameBytesEverywhere)
{
    for (const char* const sThreads : {"1", "2", "3"})
    {
        const std::string sSmall = GetStats(
            {"--seed", "42", "--iterations", "100", "--stats-every", "7", "--observables", "--threads", sThreads});
        const std::string sLarge =
            GetStats({"--seed", "7", "--atoms", "50000", "--width", "2300", "--height", "2200", "--iterations", "12",
                      "--stats-every", "5", "--observables", "--threads", sThreads});

        EXPECT_EQ(ComputeFnvHash(sSmall), 4'954'892'591'614'002'868U) << sSmall;
        EXPECT_EQ(ComputeFnvHash(sLarge), 7'700'859'808'180'727'896U) << sLarge;
    }
}

TEST(Stats, OneAtomInASmallWorldIsCountedAtTheWalls)
{
    const CTemporaryFolder folder;
    const std::string sState = folder.WriteFile("a.csv", "x,y,vx,vy,radius\n90,50,30,0,5\n");
    const std::string sTable = GetStats({"--load-state", sState, "--width", "100", "--height", "100", "--iterations",
                                         "7", "--stats-every", "7", "--observables"});

    // 90 -> 120, reflected to 70; 40; 10; -20, reflected to 30; 60; 90; and 120 again.
    EXPECT_THAT(sTable, HasSubstr("\n7,0,30,30,30,30,450,-30,0,1,2,0,0,60,120,0,0,0.06428571428571428\n"));
}

TEST(Stats, TheDetailsNeedTheFile)
{
    EXPECT_EQ(GetUsageError({"--stats-every", "5"}), "error: --stats-every: needs --stats, which names the file");
    EXPECT_EQ(GetUsageError({"--observables"}), "error: --observables: needs --stats, which names the file");
    EXPECT_THAT(GetUsageError({"--stats", "a.csv", "--stats-every", "0"}), HasSubstr("a whole number from 1 to"));
}

TEST(Stats, ARunThatContinuesRefusesAnotherTable)
{
    const CTemporaryFolder folder;
    const std::string sStats = folder.GetPath("stats.csv");
    const std::string sCheckpoint = folder.GetPath("run.ckpt");
    RunProgram({"--seed", "42", "--iterations", "25", "--checkpoint", sCheckpoint, "--stats", sStats, "--stats-every",
                "10", "--observables"});
    const std::string sTable = ReadFile(sStats);
    const CArguments resume = {"--resume", sCheckpoint, "--stats", sStats, "--iterations", "5"};
    const auto refuse = [&resume](const CArguments& arguments) {
        CArguments all = resume;
        all.insert(all.end(), arguments.begin(), arguments.end());
        return GetUsageError(all);
    };

    EXPECT_EQ(refuse({"--observables"}),
              "error: --stats-every: contradicts the checkpoint of --resume, which holds 10");
    EXPECT_EQ(refuse({"--observables", "--stats-every", "5"}),
              "error: --stats-every: contradicts the checkpoint of --resume, which holds 10");
    EXPECT_EQ(refuse({"--stats-every", "10"}),
              "error: --observables: contradicts the checkpoint of --resume, whose statistics are with it");
    EXPECT_EQ(ReadFile(sStats), sTable);
    EXPECT_EQ(folder.GetNames(), (std::vector<std::string>{"run.ckpt", "stats.csv"}));
}
