#include "diagnostics/PruneDebugLog.h"

#include "classes/core/OutputDebugMessage.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <thread>

namespace
{

TEST(PruneDebugLog, TheNewestTextStays)
{
    std::wstring sLog = L"0123456789";
    PruneDebugLog(sLog, 4);
    EXPECT_EQ(sLog, L"6789");
}

TEST(PruneDebugLog, KeepingTheWholeLengthOrMoreChangesNothing)
{
    std::wstring sLog = L"0123456789";
    PruneDebugLog(sLog, 10);
    EXPECT_EQ(sLog, L"0123456789");
    PruneDebugLog(sLog, 11);
    EXPECT_EQ(sLog, L"0123456789");
    PruneDebugLog(sLog, std::numeric_limits<std::size_t>::max());
    EXPECT_EQ(sLog, L"0123456789");
}

TEST(PruneDebugLog, OfOneCharacterTooManyTheFirstIsRemoved)
{
    std::wstring sLog = L"0123456789";
    PruneDebugLog(sLog, 9);
    EXPECT_EQ(sLog, L"123456789");
}

TEST(PruneDebugLog, KeepingNothingAndAnEmptyLogGiveAnEmptyLog)
{
    std::wstring sLog = L"0123456789";
    PruneDebugLog(sLog, 0);
    EXPECT_TRUE(sLog.empty());
    PruneDebugLog(sLog, 0);
    PruneDebugLog(sLog, 5);
    EXPECT_TRUE(sLog.empty());
}

TEST(PruneDebugLog, TheReservedStorageIsKept)
{
    constexpr std::size_t uReserved = 100'000;
    std::wstring sLog;
    sLog.reserve(uReserved);
    const auto uStorage = reinterpret_cast<std::uintptr_t>(sLog.data());
    sLog.assign(uReserved, L'x');
    PruneDebugLog(sLog, uReserved / 2);
    EXPECT_EQ(sLog.size(), uReserved / 2);
    EXPECT_GE(sLog.capacity(), uReserved);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(sLog.data()), uStorage);
}

TEST(PruneDebugLog, AMessageOfAnotherThreadIsNeitherTornNorLost)
{
    constexpr int iMessages = 5'000;
    std::wstring sLog;
    {
        const std::jthread writer([&sLog] {
            for (int i = 0; i < iMessages; ++i)
            {
                OutputDebugMessage(&sLog, L"0123456789");
            }
        });
        for (int i = 0; i < 200; ++i)
        {
            PruneDebugLog(sLog, 1000);
        }
    }
    ASSERT_GE(sLog.size(), 10U);
    EXPECT_EQ(sLog.size() % 10, 0U);
    EXPECT_EQ(sLog.substr(sLog.size() - 10), L"0123456789");
    EXPECT_EQ(sLog.substr(0, 10), L"0123456789");
}

TEST(PruneDebugLog, IsNeededOnlyAboveThreeQuarters)
{
    static_assert(!NeedsPruning(15'000'000, 20'000'000));
    static_assert(NeedsPruning(15'000'001, 20'000'000));
    static_assert(!NeedsPruning(0, 0));
    static_assert(NeedsPruning(1, 0));
}

TEST(PruneDebugLog, ThreeQuartersAreRoundedDownToWholeCharacters)
{
    // 3/4 of 1, 2, 3 and 5 are 0.75, 1.5, 2.25 and 3.75.
    static_assert(!NeedsPruning(0, 1) && NeedsPruning(1, 1));
    static_assert(!NeedsPruning(1, 2) && NeedsPruning(2, 2));
    static_assert(!NeedsPruning(2, 3) && NeedsPruning(3, 3));
    static_assert(!NeedsPruning(3, 5) && NeedsPruning(4, 5));
    for (std::size_t uCapacity = 0; uCapacity < 1000; ++uCapacity)
    {
        for (std::size_t uLength = 0; uLength < 1000; ++uLength)
        {
            ASSERT_EQ(NeedsPruning(uLength, uCapacity), uLength > uCapacity * 3 / 4);
        }
    }
}

TEST(PruneDebugLog, TheLargestCapacityDoesNotOverflow)
{
    constexpr std::size_t uMax = std::numeric_limits<std::size_t>::max();
    static_assert(NeedsPruning(uMax, uMax));
    static_assert(!NeedsPruning(uMax / 2, uMax));
    static_assert(!NeedsPruning(uMax / 4 * 3 + 2, uMax) && NeedsPruning(uMax / 4 * 3 + 3, uMax));
}

} // namespace
