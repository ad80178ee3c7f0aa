#include "tests/endtoend/CEndToEndTest.h"
#include "tests/endtoend/CStorm.h"

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>

namespace
{
// A short storm by default; the long one is a minute.
constexpr const char* c_sSecondsVariable = "KINETARIUM_STORM_SECONDS";
constexpr const char* c_sSeedVariable = "KINETARIUM_STORM_SEED";
constexpr std::uint32_t c_uDefaultSeconds = 8;

std::uint32_t ReadVariable(const char* sName, std::uint32_t uDefault)
{
    const char* sText = std::getenv(sName);
    return sText != nullptr ? static_cast<std::uint32_t>(std::stoul(sText)) : uDefault;
}

std::string Describe(const CProcessCounts& counts)
{
    return std::to_string(counts.threads) + " threads, " + std::to_string(counts.handles) + " handles, " +
           std::to_string(counts.gdiObjects) + " GDI objects, " + std::to_string(counts.userObjects) + " user objects";
}

using Storm = CEndToEndTest;
} // namespace

TEST_F(Storm, RandomInputLeavesTheProgramAliveAndNothingBehind)
{
    const std::uint32_t uSeconds = ReadVariable(c_sSecondsVariable, c_uDefaultSeconds);
    const std::uint32_t uSeed = ReadVariable(c_sSeedVariable, std::random_device()());
    std::cout << "storm of " << uSeconds << " s with " << c_sSeedVariable << "=" << uSeed << std::endl;

    CStorm storm(m_program, m_user, uSeed);
    // What is made for the first time, and kept, is no leak.
    constexpr int c_iWarmUpActions = 40;
    storm.ActEachOnce();
    for (int i = 0; i < c_iWarmUpActions; ++i)
    {
        storm.Act();
    }
    storm.Settle();
    const CProcessCounts before = m_program.Count();

    m_user.ClickWorldMiddle();
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(uSeconds);
    while (std::chrono::steady_clock::now() < end)
    {
        storm.Act();
    }
    storm.Settle();
    const CProcessCounts after = m_program.Count();

    for (const auto& [sAction, iTimes] : storm.GetTally())
    {
        std::cout << "  " << iTimes << " x " << sAction << "\n";
    }
    std::cout << "  " << storm.GetCountWhileRunning() << " of them while a simulation ran\n";
    std::cout << "before: " << Describe(before) << "\nafter:  " << Describe(after) << std::endl;

    // A storm leaves up to three handles and three to nine GDI objects, as many after 150 actions as after 900: a leak
    // of one per action of the rarest kind would be more.
    constexpr int c_iSlack = 10;
    constexpr int c_iGdiSlack = 15;
    EXPECT_LE(after.threads, before.threads + 1);
    EXPECT_LE(after.handles, before.handles + c_iSlack);
    EXPECT_LE(after.gdiObjects, before.gdiObjects + c_iGdiSlack);
    EXPECT_LE(after.userObjects, before.userObjects);
    EXPECT_GT(storm.GetCountWhileRunning(), 0);
    ASSERT_TRUE(m_program.IsRunning());
    ExpectCleanClose();
}
