#include "headless/console/HeadlessError.h"
#include "headless/CRunObservers.h"
#include "settings/CSettings.h"
#include "simulation/CAtoms.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace
{

using CCalls = std::vector<std::string>;

// What a fake observer does and is.
struct CFake
{
    std::string name;
    bool bAgain{};
    bool bDirect{};
    std::string failing{}; // the call that throws, such as "a: observe 3"
};

// Notes each call in a list that the observers of a test share.
class CFakeObserver : public IRunObserver
{
public:
    CFakeObserver(CFake fake, CCalls& calls) : m_Fake(std::move(fake)), m_Calls(calls) {}

    void Prepare(const CAtoms& /*atoms*/) override { Call("prepare"); }
    void Observe(const CRunMoment& moment) override { Call("observe " + std::to_string(moment.iteration)); }
    void Keep(bool bOnDisk) override { Call(bOnDisk ? "keep on disk" : "keep"); }
    std::string GetProgress() const override { return "bytes of " + m_Fake.name; }
    void Continue(std::string_view sProgress) override { Call("continue " + std::string(sProgress)); }
    bool MayObserveAgain() const override { return m_Fake.bAgain; }
    bool IsDirect() const override { return m_Fake.bDirect; }
    void Commit() override { Call("commit"); }

private:
    void Call(const std::string& sWhat)
    {
        const std::string sCall = m_Fake.name + ": " + sWhat;
        m_Calls.push_back(sCall);
        if (sCall == m_Fake.failing)
        {
            throw CWriteError("failed at " + sCall);
        }
    }

    CFake m_Fake;
    CCalls& m_Calls;
};

class RunObservers : public testing::Test
{
protected:
    void Add(CRunObservers& observers, const CFake& fake)
    {
        observers.Add("--" + fake.name, std::make_unique<CFakeObserver>(fake, calls));
    }

    void ShowTo(CRunObservers& observers, std::uint64_t uFirst, std::uint64_t uLast) const
    {
        for (std::uint64_t u = uFirst; u <= uLast; ++u)
        {
            observers.Observe({u, 0, false, atoms, settings});
        }
    }

    // What the program says about a run that went on to the tenth iteration without this observer after the fourth.
    std::string GetRefusal(const CFake& fake)
    {
        CRunObservers observers({{"--" + fake.name, {5, "old"}}}, 10);
        try
        {
            Add(observers, fake);
        }
        catch (const CUsageError& error)
        {
            return error.what();
        }
        return "";
    }

    const CAtoms atoms;
    const CSettings settings;
    CCalls calls;
};

} // namespace

TEST_F(RunObservers, EachObserverSeesEachMomentOnceAndInOrder)
{
    CRunObservers observers({}, 0);
    Add(observers, {"a", false});
    Add(observers, {"b", true});
    ShowTo(observers, 0, 1);
    ShowTo(observers, 1, 2);

    EXPECT_EQ(calls,
              (CCalls{"a: observe 0", "b: observe 0", "a: observe 1", "b: observe 1", "a: observe 2", "b: observe 2"}));
}

TEST_F(RunObservers, EveryObserverIsPreparedAndKept)
{
    CRunObservers observers({}, 0);
    Add(observers, {"a"});
    Add(observers, {"b"});
    observers.Prepare(atoms);
    observers.Keep(false);
    observers.Keep(true);

    EXPECT_EQ(calls, (CCalls{"a: prepare", "b: prepare", "a: keep", "b: keep", "a: keep on disk", "b: keep on disk"}));
}

TEST_F(RunObservers, TheProgressTellsTheNextIterationAndTheBytesOfEach)
{
    CRunObservers observers({}, 0);
    Add(observers, {"a"});
    Add(observers, {"b"});
    ShowTo(observers, 0, 7);

    const CRunProgress expected = {{"--a", {8, "bytes of a"}}, {"--b", {8, "bytes of b"}}};
    EXPECT_EQ(observers.GetProgress(), expected);
}

TEST_F(RunObservers, OneThatContinuesGetsItsBytesAndTheNextMomentOnly)
{
    CRunObservers observers({{"--a", {11, "old"}}}, 10);
    Add(observers, {"a"});
    ShowTo(observers, 10, 12);

    EXPECT_EQ(calls, (CCalls{"a: continue old", "a: observe 11", "a: observe 12"}));
}

// The progress of a moment in which it was interrupted.
TEST_F(RunObservers, OneThatMayObserveAgainGetsTheInterruptedMomentAgain)
{
    CRunObservers observers({{"--a", {10, "old"}}}, 10);
    Add(observers, {"a", true});
    ShowTo(observers, 10, 11);

    EXPECT_EQ(calls, (CCalls{"a: continue old", "a: observe 10", "a: observe 11"}));
}

TEST_F(RunObservers, OneThatMayNotObserveAgainRefusesAnInterruptedMoment)
{
    CRunObservers observers({{"--a", {10, "old"}}}, 10);

    EXPECT_THROW(Add(observers, {"a", false}), CUsageError);
}

TEST_F(RunObservers, OneThatMissedAPartOfTheRunIsRefused)
{
    const std::string sGap = ": contradicts the checkpoint of --resume: a part of the run was without it, from "
                             "iteration 5 to iteration 10";
    EXPECT_EQ(GetRefusal({"a", false}), "--a" + sGap);
    EXPECT_EQ(GetRefusal({"b", true}), "--b" + sGap);
    EXPECT_EQ(calls, CCalls{});
}

TEST_F(RunObservers, ANewOneBeginsAtTheCheckpointIfItMayObserveAgainAndBehindItOtherwise)
{
    CRunObservers observers({}, 10);
    Add(observers, {"a", false});
    Add(observers, {"b", true});
    ShowTo(observers, 10, 11);

    EXPECT_EQ(calls, (CCalls{"b: observe 10", "a: observe 11", "b: observe 11"}));
}

TEST_F(RunObservers, TheProgressOfOneThatIsNotAddedStays)
{
    CRunObservers observers({{"--a", {4, "old"}}}, 10);
    Add(observers, {"b", true});
    ShowTo(observers, 10, 10);

    const CRunProgress expected = {{"--a", {4, "old"}}, {"--b", {11, "bytes of b"}}};
    EXPECT_EQ(observers.GetProgress(), expected);
}

TEST_F(RunObservers, AMomentThatFailsCountsAsNotObserved)
{
    CRunObservers observers({}, 0);
    Add(observers, {"a"});
    Add(observers, {"b", false, false, "b: observe 3"});
    ShowTo(observers, 0, 2);

    EXPECT_THROW(ShowTo(observers, 3, 3), CWriteError);
    EXPECT_EQ(observers.GetProgress().at("--a").next, 4U);
    EXPECT_EQ(observers.GetProgress().at("--b").next, 3U);
}

TEST_F(RunObservers, AreDirectIfOneOfThemIs)
{
    CRunObservers observers({}, 0);
    EXPECT_FALSE(observers.IsDirect());
    Add(observers, {"a"});
    EXPECT_FALSE(observers.IsDirect());
    Add(observers, {"b", false, true});
    Add(observers, {"c"});
    EXPECT_TRUE(observers.IsDirect());
}

TEST_F(RunObservers, AllAreCommittedAndEveryErrorIsCollected)
{
    CRunObservers observers({}, 0);
    Add(observers, {"a", false, false, "a: commit"});
    Add(observers, {"b"});
    Add(observers, {"c", false, false, "c: commit"});
    std::string sErrors;
    observers.Commit([&sErrors](const std::function<void()>& commit) {
        try
        {
            commit();
        }
        catch (const CWriteError& error)
        {
            sErrors.append(error.what()).append("; ");
        }
    });

    EXPECT_EQ(sErrors, "failed at a: commit; failed at c: commit; ");
    EXPECT_EQ(calls, (CCalls{"a: commit", "b: commit", "c: commit"}));
}
