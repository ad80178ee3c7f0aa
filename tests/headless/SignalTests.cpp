#include "tests/headless/CHeadlessProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

using testing::StartsWith;

// A fault stops the program right before a call, so that the signal arrives in a known phase on any machine. Whatever
// it is doing then, the program ends by itself; a program that does not keeps its test waiting until the test's time is
// over.
namespace
{

using CArguments = std::vector<std::string>;
using CNames = std::vector<std::string>;

// Longer than anyone waits.
const std::string c_sForEver = "1000000000000";

constexpr int c_iSignalExitCode = 128;

struct CPipe
{
    CPipe() { static_cast<void>(pipe2(ends.data(), O_CLOEXEC)); }
    CPipe(const CPipe&) = delete;
    CPipe& operator=(const CPipe&) = delete;
    ~CPipe()
    {
        close(ends[0]);
        close(ends[1]);
    }

    bool HasRoom() const
    {
        pollfd entry = {ends[1], POLLOUT, 0};
        return poll(&entry, 1, 0) == 1;
    }

    void Fill() const
    {
        const std::array<char, 4096> piece{};
        while (HasRoom())
        {
            static_cast<void>(write(ends[1], piece.data(), piece.size()));
        }
    }

    std::array<int, 2> ends{-1, -1};
};

class Signal : public testing::TestWithParam<int>
{
protected:
    // Runs the program until the rule stops it, sends the signal, and checks that the program ends for this reason and
    // leaves these files.
    void ExpectEnd(const CLaunch& launch, const CNames& names) const
    {
        CHeadlessProcess process(launch);
        ASSERT_TRUE(process.WaitForStop()) << process.WaitForEnd().err;
        process.Send(GetParam());
        process.Continue();
        ExpectEnd(process, names);
    }

    void ExpectEnd(CHeadlessProcess& process, const CNames& names) const
    {
        const CProgramResult result = process.WaitForEnd();
        EXPECT_EQ(result.exitCode, c_iSignalExitCode + GetParam()) << result.err;
        EXPECT_THAT(result.err, StartsWith("error: interrupted"));
        EXPECT_EQ(folder.GetNames(), names);
    }

    const CTemporaryFolder folder;
};

} // namespace

TEST_P(Signal, EndsTheLoadingOfAState)
{
    std::string sState = "x,y,vx,vy,radius\n";
    for (int row = 0; row < 100'000; ++row)
    {
        sState += "20,20,1,0.5,5\n";
    }
    const std::string sPath = folder.WriteFile("state.csv", sState);
    ExpectEnd({{"--load-state", sPath, "--width", "512", "--height", "512", "--save-state", folder.GetPath("end.csv")},
               "read:state.csv:2:signal=19"},
              {"state.csv"});
}

// The program waits in the middle of a read, where it asks for no signal.
TEST_P(Signal, EndsTheLoadingFromAPipeThatNobodyWrites)
{
    const std::string sPath = folder.GetPath("pipe");
    ASSERT_EQ(mkfifo(sPath.c_str(), S_IRUSR | S_IWUSR), 0);
    const int held = open(sPath.c_str(), O_RDWR | O_CLOEXEC);
    ExpectEnd({{"--load-state", sPath, "--width", "512", "--height", "512"}, "read:pipe:1:signal=19"}, {"pipe"});
    close(held);
}

TEST_P(Signal, EndsTheIterations)
{
    ExpectEnd({{"--seed", "1", "--atoms", "5", "--iterations", c_sForEver, "--stats", "/dev/null"},
               "write:/dev/null:2:signal=19"},
              {});
}

TEST_P(Signal, EndsTheIterationsThatWriteToAPipeThatNobodyReads)
{
    const CPipe pipe;
    CLaunch launch{{"--atoms", "5", "--iterations", c_sForEver, "--stats", "-"}, ""};
    launch.out = pipe.ends[1];
    CHeadlessProcess process(launch);
    while (pipe.HasRoom())
    {
        usleep(1000);
    }
    process.Send(GetParam());
    ExpectEnd(process, {});
}

// The first opening of each file belongs to the check before the run.
TEST_P(Signal, EndsAPictureBetweenTheIterations)
{
    ExpectEnd({{"--iterations", c_sForEver, "--picture", folder.GetPath("gas.png"), "--picture-every", "2"},
               "open:gas-:2:signal=19"},
              {});
}

TEST_P(Signal, EndsTheSavingOfTheState)
{
    folder.WriteFile("end.csv", "old");
    ExpectEnd({{"--atoms", "5000", "--iterations", "1", "--save-state", folder.GetPath("end.csv")},
               "write:end.csv:2:signal=19"},
              {"end.csv"});
    EXPECT_EQ(ReadFile(folder.GetPath("end.csv")), "old");
}

TEST_P(Signal, EndsTheSavingToAPipeThatNobodyReads)
{
    const CPipe pipe;
    pipe.Fill();
    CLaunch launch{{"--iterations", "1", "--save-state", "-"}, "write:pipe:1:signal=19"};
    launch.out = pipe.ends[1];
    ExpectEnd(launch, {});
}

TEST_P(Signal, EndsTheLastPicture)
{
    ExpectEnd({{"--iterations", "1", "--picture", folder.GetPath("gas.png")}, "open:gas.png:2:signal=19"}, {});
}

TEST_P(Signal, EndsTheReport)
{
    ExpectEnd({{"--iterations", "1", "--report", folder.GetPath("gas.html")}, "open:gas.html:2:signal=19"}, {});
}

// Counting the overlaps of that many atoms on one spot takes seconds; the signal comes soon after they have begun.
TEST_P(Signal, EndsTheCountOfOverlaps)
{
    const std::string sState = folder.GetPath("end.csv");
    CHeadlessProcess process(
        {{"--seed", "1", "--atoms", "200000", "--start-at", "250,250", "--iterations", "0", "--save-state", sState},
         "rename:end.csv:1:later=" + std::to_string(GetParam())});
    ExpectEnd(process, {"end.csv"});
}

TEST_P(Signal, EndsTheSummaryForAPipeThatNobodyReads)
{
    const CPipe pipe;
    pipe.Fill();
    CLaunch launch{{"--iterations", "1", "--save-state", folder.GetPath("end.csv")}, "write:pipe:1:signal=19"};
    launch.out = pipe.ends[1];
    ExpectEnd(launch, {"end.csv"});
}

// The signal comes while a checkpoint is written, which is finished first.
TEST_P(Signal, LosesNothingOfARunWithACheckpoint)
{
    const CArguments outputs = {"--checkpoint", folder.GetPath("run.ckpt"), "--stats", folder.GetPath("stats.csv")};
    const CArguments world = {"--seed", "42", "--iterations", "9", "--checkpoint-every", "2"};
    CArguments arguments = world;
    arguments.insert(arguments.end(), outputs.begin(), outputs.end());
    ExpectEnd({arguments, "write:run.ckpt:2:signal=19"}, {"run.ckpt", "stats.csv.partial"});

    arguments = {"--resume", folder.GetPath("run.ckpt"), "--iterations", "5"};
    arguments.insert(arguments.end(), outputs.begin(), outputs.end());
    const CProgramResult resumed = RunHeadless({arguments});
    EXPECT_EQ(resumed.exitCode, 0) << resumed.err;
    const std::string sWhole = folder.GetPath("whole.csv");
    const CProgramResult whole = RunHeadless({{"--seed", "42", "--iterations", "9", "--stats", sWhole}});
    EXPECT_EQ(GetSummaryValue(resumed.out, "state hash"), GetSummaryValue(whole.out, "state hash"));
    EXPECT_EQ(ReadFile(folder.GetPath("stats.csv")), ReadFile(sWhole));
    EXPECT_EQ(folder.GetNames(), (CNames{"run.ckpt", "stats.csv", "whole.csv"}));
}

// Both signals are waiting when the program goes on. Some callers send two for one demand.
TEST_P(Signal, WithAnotherOneRightBehindItIsOneDemand)
{
    CHeadlessProcess process(
        {{"--iterations", c_sForEver, "--checkpoint", folder.GetPath("run.ckpt"), "--checkpoint-every", "2"},
         "fsync:run.ckpt:1:signal=19"});
    ASSERT_TRUE(process.WaitForStop());
    process.Send(GetParam());
    process.Send(GetParam() == SIGTERM ? SIGINT : SIGTERM);
    process.Continue();
    EXPECT_GT(process.WaitForEnd().exitCode, c_iSignalExitCode);
    EXPECT_EQ(folder.GetNames(), CNames{"run.ckpt"});
}

// The program has not ended at the first signal, because it writes a checkpoint.
TEST_P(Signal, EndsAtOnceTheSecondTime)
{
    folder.WriteFile("run.ckpt", "old");
    CHeadlessProcess process({{"--iterations", "1", "--checkpoint", folder.GetPath("run.ckpt")},
                              "write:run.ckpt:1:signal=19;rename:run.ckpt:1:signal=19"});
    ASSERT_TRUE(process.WaitForStop());
    process.Send(GetParam());
    process.Continue();
    ASSERT_TRUE(process.WaitForStop()) << process.WaitForEnd().err;
    // A signal right behind the first one would count as the same.
    usleep(200'000);
    process.Send(GetParam());
    process.Continue();
    ExpectEnd(process, {"run.ckpt"});
    EXPECT_EQ(ReadFile(folder.GetPath("run.ckpt")), "old");
}

INSTANTIATE_TEST_SUITE_P(EverySignal, Signal, testing::Values(SIGINT, SIGTERM, SIGHUP),
                         [](const testing::TestParamInfo<int>& parameter) {
                             return std::string(sigabbrev_np(parameter.param));
                         });

namespace
{

CProgramResult RunWithIgnored(int signal)
{
    const CTemporaryFolder folder;
    // The disposition of an ignored signal is inherited, as by a program that nohup or a shell starts.
    const auto old = std::signal(signal, SIG_IGN);
    CHeadlessProcess process({{"--iterations", "2", "--picture", folder.GetPath("gas.png"), "--picture-every", "1"},
                              "write:gas-1:1:signal=19"});
    static_cast<void>(std::signal(signal, old));
    EXPECT_TRUE(process.WaitForStop());
    process.Send(signal);
    process.Continue();
    return process.WaitForEnd();
}

} // namespace

TEST(SignalThatTheCallerIgnores, StaysIgnored)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
    {
        EXPECT_EQ(RunWithIgnored(signal).exitCode, 0) << signal;
    }
}
