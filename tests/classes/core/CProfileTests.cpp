#include "classes/core/CProfile.h"

#include <algorithm>
#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

namespace
{

class Profile : public testing::Test
{
protected:
    Profile() { CProfile::Reset(); }
    ~Profile() override { CProfile::Reset(); }

    // The recorded row of the text; an empty row if there is none.
    static CProfileRow Find(const std::string& sText)
    {
        for (const CProfileRow& row : CProfile::GetTable())
        {
            if (row.sText == sText)
            {
                return row;
            }
        }
        return {};
    }
};

TEST_F(Profile, CallsAreCountedByText)
{
    for (int i = 0; i < 3; ++i)
    {
        const CProfile scope("first", nullptr, true, false);
    }
    const CProfile once("second", nullptr, true, false);
    EXPECT_EQ(Find("first").uCalls, 3U);
    EXPECT_EQ(Find("second").uCalls, 0U) << "a scope that is still open has not been called yet";
}

TEST_F(Profile, TimesAreSummedAndTheLongestKept)
{
    for (const int iMilliSeconds : {1, 6, 2})
    {
        const CProfile scope("waits", nullptr, true, false);
        std::this_thread::sleep_for(std::chrono::milliseconds(iMilliSeconds));
    }
    const CProfileRow row = Find("waits");
    EXPECT_EQ(row.uCalls, 3U);
    EXPECT_GE(row.llTotalMicroSeconds, 9000);
    EXPECT_GE(row.llLongestMicroSeconds, 6000);
    EXPECT_LE(row.llLongestMicroSeconds, row.llTotalMicroSeconds);
}

TEST_F(Profile, AScopeWithoutRecordingLeavesNoRow)
{
    {
        const CProfile scope("silent", nullptr, false, false);
    }
    EXPECT_TRUE(CProfile::GetTable().empty());
}

TEST_F(Profile, ScopesOfManyThreadsLoseNoCall)
{
    constexpr int iThreads = 4;
    constexpr int iCalls = 5000;
    {
        std::vector<std::jthread> threads;
        threads.reserve(iThreads);
        for (int iThread = 0; iThread < iThreads; ++iThread)
        {
            threads.emplace_back([iThread] {
                for (int i = 0; i < iCalls; ++i)
                {
                    const CProfile shared("shared", nullptr, true, false);
                    const CProfile own("own " + std::to_string(iThread) + " " + std::to_string(i % 10), nullptr, true,
                                       false);
                }
            });
        }
    }
    EXPECT_EQ(Find("shared").uCalls, static_cast<std::uint64_t>(iThreads) * iCalls);
    EXPECT_EQ(Find("own 3 9").uCalls, static_cast<std::uint64_t>(iCalls) / 10);
    EXPECT_EQ(CProfile::GetTable().size(), 1U + iThreads * 10U);
}

TEST_F(Profile, ResetZeroesAllSumsAndOpenScopesStillCount)
{
    {
        const CProfile scope("before", nullptr, true, false);
    }
    {
        const CProfile open("open", nullptr, true, false);
        CProfile::Reset();
        EXPECT_TRUE(CProfile::GetTable().empty());
    }
    EXPECT_EQ(Find("open").uCalls, 1U);
    EXPECT_EQ(Find("before").uCalls, 0U);
}

TEST_F(Profile, TheTableBeginsWithTheLargestTotal)
{
    {
        const CProfile brief("brief", nullptr, true, false);
    }
    {
        const CProfile lengthy("lengthy", nullptr, true, false);
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    const std::vector<CProfileRow> table = CProfile::GetTable();
    ASSERT_EQ(table.size(), 2U);
    EXPECT_EQ(table.front().sText, "lengthy");
}

TEST_F(Profile, TheTextOfTheTableHasAlignedColumnsAndTheMeanOfEachScope)
{
    const std::vector<CProfileRow> rows{{"void CThing::Work() - Line 7 - File thing.cpp", 4, 12345680, 9000001},
                                        {"never", 0, 0, 0},
                                        {"often", 123456789012, 123456789, 7}};
    EXPECT_EQ(CProfile::FormatTable(rows),
              "       calls       total ms      mean ms   longest ms  scope\n"
              "           4      12345.680     3086.420     9000.001  void CThing::Work() - Line 7 - File thing.cpp\n"
              "           0          0.000        0.000        0.000  never\n"
              "123456789012     123456.789        0.000        0.007  often\n");
}

TEST_F(Profile, TheTextOfAnEmptyTableIsTheHeading)
{
    EXPECT_EQ(CProfile::FormatTable(CProfile::GetTable()),
              "       calls       total ms      mean ms   longest ms  scope\n");
}

TEST_F(Profile, EntryAndExitAreLoggedOnRequest)
{
    std::wstring sLog;
    {
        const CProfile scope("void F\xC3\xBC()", &sLog, false, true);
        EXPECT_EQ(sLog, L"Enter void F\u00FC()\n");
    }
    EXPECT_EQ(sLog, L"Enter void F\u00FC()\nLeave void F\u00FC()\n");
}

TEST_F(Profile, WithoutALogLoggingAndRecordingStillWork)
{
    {
        const CProfile scope("nowhere", nullptr, true, true);
    }
    EXPECT_EQ(Find("nowhere").uCalls, 1U);
}

TEST_F(Profile, ALogStaysEmptyWithoutARequest)
{
    std::wstring sLog;
    {
        const CProfile scope("quiet", &sLog, true, false);
    }
    EXPECT_TRUE(sLog.empty());
}

TEST_F(Profile, AScopeClosesWhenAnExceptionLeavesIt)
{
    try
    {
        const CProfile scope("throws", nullptr, true, false);
        throw 1;
    }
    catch (int)
    {
        EXPECT_EQ(Find("throws").uCalls, 1U);
    }
}

} // namespace
