#include "headless/files/CByteWriter.h"
#include "tests/headless/HeadlessTesting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

using testing::HasSubstr;
using testing::StartsWith;

namespace
{

using CArguments = std::vector<std::string>;

CArguments Join(CArguments first, const CArguments& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

// The histograms of a run that succeeds.
std::string GetHistograms(const CArguments& arguments)
{
    const CProgramResult result = RunProgram(Join(arguments, {"--histogram", "-"}));
    EXPECT_EQ(result.exitCode, 0) << result.err;
    return result.out;
}

std::string GetUsageError(const CArguments& arguments)
{
    const CProgramResult result = RunProgram(arguments);
    EXPECT_EQ(result.exitCode, 2);
    return result.err.substr(0, result.err.find('\n'));
}

void RunWell(const CArguments& arguments)
{
    const CProgramResult result = RunProgram(arguments);
    EXPECT_EQ(result.exitCode, 0) << result.err;
}

} // namespace

TEST(Histogram, HasTheLastIterationAndFiftyBinsUnlessToldOtherwise)
{
    const std::string sTable = GetHistograms({"--seed", "42", "--iterations", "10"});

    EXPECT_EQ(std::count(sTable.begin(), sTable.end(), '\n'), 1 + 50 + 1);
    EXPECT_THAT(sTable, StartsWith("iteration,from_speed,to_speed,atoms,density\n10,0,"));
    EXPECT_EQ(GetHistograms({"--seed", "42", "--iterations", "10", "--histogram-at", "10", "--histogram-bins", "50"}),
              sTable);
}

// The table of a run with three atoms whose speeds are known, and whose mean is 1.
TEST(Histogram, TheBinsReachFourTimesTheMeanSpeedOfTheStart)
{
    const CTemporaryFolder folder;
    const std::string sState =
        folder.WriteFile("a.csv", "x,y,vx,vy,radius\n50,20,0.5,0,1\n50,50,0,1,1\n50,80,0,-1.5,1\n");
    const CArguments run = {"--load-state", sState, "--width", "100", "--height", "100", "--iterations", "0"};

    EXPECT_EQ(GetHistograms(Join(run, {"--histogram-bins", "4"})),
              "iteration,from_speed,to_speed,atoms,density\n0,0,1,1,0.3333333333333333\n0,1,2,2,0.6666666666666666\n"
              "0,2,3,0,0\n0,3,4,0,0\n0,4,inf,0,0\n");
    EXPECT_EQ(GetHistograms(Join(run, {"--histogram-bins", "1", "--histogram-range", "1.25"})),
              "iteration,from_speed,to_speed,atoms,density\n0,0,1.25,2,0.5333333333333333\n0,1.25,inf,1,0\n");
}

TEST(Histogram, AtomsAtRestAreInTheFirstBin)
{
    const CTemporaryFolder folder;
    const std::string sState = folder.WriteFile("a.csv", "x,y,vx,vy,radius\n50,20,0,0,1\n");

    EXPECT_EQ(GetHistograms({"--load-state", sState, "--width", "100", "--height", "100", "--iterations", "3",
                             "--histogram-bins", "2"}),
              "iteration,from_speed,to_speed,atoms,density\n3,0,0.5,1,2\n3,0.5,1,0,0\n3,1,inf,0,0\n");
}

// The same bytes on every machine and with any number of threads.
TEST(Histogram, ATableHasTheSameBytesEverywhere)
{
    for (const char* const sThreads : {"1", "2", "3"})
    {
        const std::string sTable =
            GetHistograms({"--seed", "7", "--atoms", "50000", "--width", "2300", "--height", "2200", "--iterations",
                           "12", "--histogram-at", "end,1,0,5", "--histogram-bins", "20", "--threads", sThreads});

        EXPECT_EQ(ComputeFnvHash(sTable), 18'088'316'742'875'723'291U) << sTable;
    }
}

TEST(Histogram, ARunInPiecesGivesTheWholeTable)
{
    const CTemporaryFolder folder;
    const std::string sWhole = folder.GetPath("whole.csv");
    const std::string sPart = folder.GetPath("part.csv");
    const std::string sCheckpoint = folder.GetPath("run.ckpt");
    const CArguments piece = {"--checkpoint", sCheckpoint, "--histogram", sPart};
    const CArguments resume = Join({"--resume", sCheckpoint}, piece);
    RunWell({"--seed", "5", "--iterations", "60", "--histogram", sWhole, "--histogram-at", "0,20,50,end"});
    RunWell(Join(piece, {"--seed", "5", "--iterations", "20", "--histogram-at", "0,end"}));
    RunWell(Join(resume, {"--iterations", "15", "--histogram-at", "0,20"}));
    RunWell(Join(resume, {"--iterations", "25", "--histogram-at", "20,50,end"}));
    EXPECT_EQ(ReadFile(sPart), ReadFile(sWhole));
    RunWell(Join(resume, {"--iterations", "0"}));
    EXPECT_EQ(ReadFile(sPart), ReadFile(sWhole));
}

// A run without histograms is continued with them: the moment of the checkpoint can still be seen.
TEST(Histogram, BeginsAtTheCheckpoint)
{
    const CTemporaryFolder folder;
    const std::string sCheckpoint = folder.GetPath("run.ckpt");
    const CArguments chosen = {"--histogram-at", "10,12"};
    RunWell({"--seed", "5", "--iterations", "10", "--checkpoint", sCheckpoint});

    EXPECT_EQ(GetHistograms(Join({"--resume", sCheckpoint, "--iterations", "5"}, chosen)),
              GetHistograms(Join({"--seed", "5", "--iterations", "15"}, chosen)));
    EXPECT_EQ(GetUsageError({"--resume", sCheckpoint, "--histogram", "-", "--histogram-at", "9,12"}),
              "error: --histogram-at: iteration 9 is over: the checkpoint of --resume is from iteration 10");
}

TEST(Histogram, ARunThatContinuesRefusesOtherBins)
{
    const CTemporaryFolder folder;
    const std::string sCheckpoint = folder.GetPath("run.ckpt");
    const std::string sTable = folder.GetPath("speeds.csv");
    RunWell({"--seed", "5", "--iterations", "10", "--checkpoint", sCheckpoint, "--histogram", sTable,
             "--histogram-range", "4.5"});
    const CArguments resume = {"--resume", sCheckpoint, "--histogram", sTable};

    EXPECT_EQ(GetUsageError(Join(resume, {"--histogram-range", "4.5", "--histogram-bins", "51"})),
              "error: --histogram-bins: contradicts the checkpoint of --resume, which holds 50");
    EXPECT_EQ(GetUsageError(Join(resume, {"--histogram-range", "4"})),
              "error: --histogram-range: contradicts the checkpoint of --resume, which holds 4.5");
    EXPECT_EQ(GetUsageError(resume),
              "error: --histogram-range: contradicts the checkpoint of --resume, which holds 4.5");
    EXPECT_EQ(folder.GetNames(), (std::vector<std::string>{"run.ckpt", "speeds.csv"}));
}

TEST(Histogram, RefusesValuesThatItCannotUse)
{
    const std::string sMoments = " is not allowed; allowed is iterations up to 1000000000000 and end, with commas: "
                                 "0,1e3,end";
    const std::string sSpeeds = " is not allowed; allowed is a number from 1e-9 to 1e9";
    for (const char* const sWrong : {"1,,2", "end,x", "-1", "1e13", "1;2"})
    {
        EXPECT_EQ(GetUsageError({"--histogram", "-", std::string("--histogram-at=") + sWrong}),
                  "error: --histogram-at: '" + std::string(sWrong) + "'" + sMoments);
    }
    for (const char* const sWrong : {"0", "-1", "1e10", "inf", "nan", "4.5x", "0x10"})
    {
        EXPECT_EQ(GetUsageError({"--histogram", "-", std::string("--histogram-range=") + sWrong}),
                  "error: --histogram-range: '" + std::string(sWrong) + "'" + sSpeeds);
    }
    for (const char* const sWrong : {"0", "1001"})
    {
        EXPECT_THAT(GetUsageError({"--histogram", "-", "--histogram-bins", sWrong}),
                    HasSubstr("a whole number from 1 to 1000"));
    }
    EXPECT_EQ(GetUsageError({"--iterations", "100", "--histogram", "-", "--histogram-at", "100,101"}),
              "error: --histogram-at: iteration 101 is never reached: the last one is 100");
}

TEST(Histogram, TheDetailsNeedTheFile)
{
    for (const char* const sOption : {"--histogram-at", "--histogram-bins", "--histogram-range"})
    {
        EXPECT_EQ(GetUsageError({sOption, "5"}),
                  "error: " + std::string(sOption) + ": needs --histogram, which names the file");
    }
}

TEST(Histogram, IsWrittenIntoAFileWithANameInAnyLanguage)
{
    const CTemporaryFolder folder;
    const std::string sTable = folder.GetPath("Geschwindigkeiten \xE2\x98\x83 \xE9\x80\x9F.csv");
    RunWell({"--seed", "42", "--iterations", "3", "--histogram", sTable});

    EXPECT_EQ(ReadFile(sTable), GetHistograms({"--seed", "42", "--iterations", "3"}));
}
