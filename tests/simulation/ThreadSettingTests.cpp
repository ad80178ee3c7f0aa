#include "simulation/ThreadSetting.h"

#include "classes/core/CountProcessors.h"
#include "tests/classes/core/CEnvironmentChange.h"

#include <gtest/gtest.h>

namespace
{

constexpr const char* c_sVariable = "KINETARIUM_THREADS";

TEST(ThreadSetting, WithoutTheVariableThereIsAThreadForEachProcessor)
{
    const CEnvironmentChange change(c_sVariable, nullptr);
    EXPECT_EQ(GetThreadCount(), CountUsableProcessors());
}

TEST(ThreadSetting, TheVariableGivesTheNumberOfThreads)
{
    const CEnvironmentChange change(c_sVariable, "5");
    EXPECT_EQ(GetThreadCount(), 5);
}

TEST(ThreadSetting, AVariableThatIsNoSuchNumberIsIgnored)
{
    const CEnvironmentChange change(c_sVariable, "many");
    EXPECT_EQ(GetThreadCount(), CountUsableProcessors());
}

TEST(ThreadSetting, OnlyWholeNumbersFromOneToTheMostThreadsCount)
{
    EXPECT_EQ(ParseThreadCount(L"1"), 1);
    EXPECT_EQ(ParseThreadCount(L"08"), 8);
    EXPECT_EQ(ParseThreadCount(L"256"), 256);
    for (const wchar_t* sWrong : {L"", L"0", L"-1", L"+2", L"257", L"4294967297", L"99999999999999999999", L"2.0",
                                  L" 2", L"2 ", L"0x2", L"two"})
    {
        EXPECT_EQ(ParseThreadCount(sWrong), std::nullopt) << sWrong;
    }
}

} // namespace
