#include "diagnostics/Guard.h"

#include "classes/core/SystemMessage.h"
#include "tests/diagnostics/CMemoryShortage.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace
{
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

struct COwnThrow
{
};

// A class with guarded methods, which run a body that the test gives.
class CGuarded
{
public:
    explicit CGuarded(std::wstring* pDebugLog) : m_pDebugLog(pDebugLog) {}

    template<class F>
    bool Trace(F body)
    {
        return Traced({m_pDebugLog, __TIMESTAMP__}, false, [&] { return body(), true; });
    }

    template<class F>
    bool Guard(F body)
    {
        return Guarded({m_pDebugLog, __TIMESTAMP__}, false, [&] { return body(), true; });
    }

    template<class F>
    void TraceNothing(F body)
    {
        Traced({m_pDebugLog, __TIMESTAMP__}, [&] { body(); });
    }

    template<class F>
    void GuardNothing(F body)
    {
        Guarded({m_pDebugLog, __TIMESTAMP__}, [&] { body(); });
    }

    int Throw(int iAtoms);
    static constexpr unsigned GetLineOfThrow();

private:
    std::wstring* m_pDebugLog;
};

// clang-format off
int CGuarded::Throw(int iAtoms)
{
    return Traced({m_pDebugLog, __TIMESTAMP__}, -1, [&]() -> int { throw std::runtime_error(std::to_string(iAtoms)); });
}
constexpr unsigned CGuarded::GetLineOfThrow() { return __LINE__ - 2; }
// clang-format on

class Guard : public testing::Test
{
protected:
    Guard() { CProfile::Reset(); }
    ~Guard() override { CProfile::Reset(); }

    std::wstring m_sLog;
    CGuarded m_Object{&m_sLog};
};

std::uint64_t CountCalls()
{
    std::uint64_t uCalls = 0;
    for (const CProfileRow& row : CProfile::GetTable())
    {
        uCalls += row.uCalls;
    }
    return uCalls;
}

TEST_F(Guard, WithoutAnExceptionTheResultOfTheBodyIsReturnedAndNothingIsReported)
{
    EXPECT_TRUE(m_Object.Trace([] {}));
    EXPECT_TRUE(m_Object.Guard([] {}));
    int iRuns = 0;
    m_Object.TraceNothing([&] { ++iRuns; });
    m_Object.GuardNothing([&] { ++iRuns; });
    EXPECT_EQ(iRuns, 2);
    EXPECT_TRUE(m_sLog.empty());
}

TEST_F(Guard, AStandardExceptionIsReportedWithItsTextAndTheFailureValueReturned)
{
    EXPECT_FALSE(m_Object.Guard([] { throw std::runtime_error("disk full"); }));
    EXPECT_THAT(m_sLog, StartsWith(L"Exception: std::runtime_error \"disk full\" in "));
    m_sLog.clear();
    EXPECT_FALSE(m_Object.Trace([] { throw std::bad_alloc(); }));
    EXPECT_THAT(m_sLog, StartsWith(L"Exception: std::bad_alloc "));
}

TEST_F(Guard, AnyOtherExceptionIsReportedAndSwallowedToo)
{
    EXPECT_FALSE(m_Object.Trace([] { throw 5; }));
    EXPECT_THAT(m_sLog, StartsWith(L"Exception: int in "));
    m_sLog.clear();
    EXPECT_FALSE(m_Object.Guard([] { throw COwnThrow(); }));
    EXPECT_THAT(m_sLog, HasSubstr(L"COwnThrow in "));
    m_sLog.clear();
    m_Object.TraceNothing([] { throw "text"; });
    EXPECT_THAT(m_sLog, StartsWith(L"Exception: char const* in "));
    m_sLog.clear();
    m_Object.GuardNothing([] { throw L'x'; });
    EXPECT_THAT(m_sLog, StartsWith(L"Exception: wchar_t in "));
}

// A message for each exception would stop the program in the middle of a paint or of the worker's loop.
TEST_F(Guard, TheUserIsNotInterruptedByAReport)
{
    static int s_iShown = 0;
    s_iShown = 0;
    const SystemMessageFunction pBefore = SetSystemMessageFunction([](const std::wstring&) { ++s_iShown; });
    m_Object.Guard([] { throw 5; });
    m_Object.TraceNothing([] { throw std::runtime_error("unseen"); });
    SetSystemMessageFunction(pBefore);
    EXPECT_EQ(s_iShown, 0);
    EXPECT_EQ(std::count(m_sLog.begin(), m_sLog.end(), L'\n'), 2);
}

TEST_F(Guard, OneExceptionMakesOneReport)
{
    m_Object.Trace([] { throw 5; });
    EXPECT_EQ(std::count(m_sLog.begin(), m_sLog.end(), L'\n'), 1);
    m_Object.Guard([] { throw 5; });
    EXPECT_EQ(std::count(m_sLog.begin(), m_sLog.end(), L'\n'), 2);
}

TEST_F(Guard, TheReportHasMethodLineFileAndTimeStamp)
{
    EXPECT_EQ(m_Object.Throw(42), -1);
    const std::string sLine = " - Line " + std::to_string(CGuarded::GetLineOfThrow()) + " - File ";
    EXPECT_THAT(m_sLog, StartsWith(L"Exception: std::runtime_error \"42\" in "));
    EXPECT_THAT(m_sLog, HasSubstr(L"CGuarded::Throw(int)"));
    EXPECT_THAT(m_sLog, HasSubstr(std::wstring(sLine.begin(), sLine.end())));
    EXPECT_THAT(m_sLog, HasSubstr(L"GuardTests.cpp ("));
    const std::string sStamp = __TIMESTAMP__;
    EXPECT_THAT(m_sLog, EndsWith(L"(" + std::wstring(sStamp.begin(), sStamp.end()) + L")\n"));
}

TEST_F(Guard, WithoutALogTheGuardsStillWork)
{
    CGuarded silent(nullptr);
    EXPECT_FALSE(silent.Trace([] { throw std::runtime_error("unheard"); }));
    EXPECT_FALSE(silent.Guard([] { throw 5; }));
    EXPECT_TRUE(silent.Trace([] {}));
    EXPECT_EQ(CountCalls(), 2U);
}

TEST_F(Guard, TheScopeTextIsSignatureLineAndFile)
{
    constexpr unsigned uLineOfSite = __LINE__ + 1;
    const CTraceSite site{nullptr, __TIMESTAMP__};
    const std::string sSignature = site.where.function_name();
    EXPECT_EQ(FormatScopeText(site), sSignature + " - Line " + std::to_string(uLineOfSite) + " - File " + __FILE__);
    EXPECT_THAT(sSignature, HasSubstr("TestBody"));
}

TEST_F(Guard, TheScopeOfAMethodIsRecordedUnderItsText)
{
    m_Object.Throw(1);
    m_Object.Throw(2);
    const std::vector<CProfileRow> table = CProfile::GetTable();
    ASSERT_EQ(table.size(), 1U);
    EXPECT_EQ(table[0].uCalls, 2U);
    EXPECT_THAT(table[0].sText, HasSubstr("CGuarded::Throw(int) - Line " + std::to_string(CGuarded::GetLineOfThrow()) +
                                          " - File " + __FILE__));
}

TEST_F(Guard, TheScopeClosesOnEveryExit)
{
    m_Object.Trace([] {});
    EXPECT_EQ(CountCalls(), 1U);
    m_Object.Trace([] { throw 5; });
    EXPECT_EQ(CountCalls(), 2U);
    const int iEarly = Traced({&m_sLog, __TIMESTAMP__}, 0, [&] {
        if (CountCalls() == 2)
        {
            return 7;
        }
        return 8;
    });
    EXPECT_EQ(iEarly, 7);
    EXPECT_EQ(CountCalls(), 3U);
}

TEST_F(Guard, TheScopeIsOpenWhileTheBodyRuns)
{
    m_Object.TraceNothing([] { EXPECT_EQ(CountCalls(), 0U); });
    EXPECT_EQ(CountCalls(), 1U);
}

TEST_F(Guard, TheGuardAloneOpensNoScope)
{
    m_Object.Guard([] {});
    m_Object.Guard([] { throw 5; });
    m_Object.GuardNothing([] {});
    EXPECT_EQ(CountCalls(), 0U);
}

TEST_F(Guard, FailureValuesOfAnyTypeAreReturned)
{
    const std::wstring sText =
        Guarded({nullptr, __TIMESTAMP__}, std::wstring(L"failed"), []() -> std::wstring { throw 5; });
    EXPECT_EQ(sText, L"failed");
    int iValue = 0;
    int* const pValue = Traced({nullptr, __TIMESTAMP__}, static_cast<int*>(nullptr), [&] { return &iValue; });
    EXPECT_EQ(pValue, &iValue);
    const long long llValue = Traced({nullptr, __TIMESTAMP__}, 0LL, []() -> long long { throw 5; });
    EXPECT_EQ(llValue, 0);
}

TEST_F(Guard, AnInnerGuardKeepsTheExceptionFromTheOuter)
{
    const bool bOuter = m_Object.Trace([&] { EXPECT_FALSE(m_Object.Guard([] { throw 5; })); });
    EXPECT_TRUE(bOuter);
    EXPECT_EQ(std::count(m_sLog.begin(), m_sLog.end(), L'\n'), 1);
}

TEST_F(Guard, ObjectsOfTheBodyAreDestroyedBeforeTheReport)
{
    struct CWitness
    {
        std::wstring& sLog;
        ~CWitness() { sLog += L"destroyed "; }
    };
    m_Object.Guard([this] {
        const CWitness witness{m_sLog};
        throw 5;
    });
    EXPECT_THAT(m_sLog, StartsWith(L"destroyed Exception: int"));
}

TEST_F(Guard, AnExceptionInsideTheReportingIsSwallowed)
{
    bool bResult = true;
    {
        const CMemoryShortage shortage;
        bResult = m_Object.Guard([] { throw 5; });
    }
    EXPECT_FALSE(bResult);
    EXPECT_TRUE(m_sLog.empty()) << "without memory there is no report";
    EXPECT_FALSE(m_Object.Guard([] { throw 5; }));
    EXPECT_FALSE(m_sLog.empty()) << "the next report must be made";
}

TEST_F(Guard, AScopeThatCannotBeOpenedReturnsTheFailureValue)
{
    bool bResult = true;
    bool bRun = false;
    {
        const CMemoryShortage shortage;
        bResult = m_Object.Trace([&] { bRun = true; });
    }
    EXPECT_FALSE(bResult);
    EXPECT_FALSE(bRun);
    EXPECT_TRUE(m_Object.Trace([&] { bRun = true; }));
    EXPECT_TRUE(bRun);
}

TEST_F(Guard, NoExceptionLeavesTheEntryOfAThread)
{
    constexpr int iThreads = 4;
    std::vector<std::thread> threads;
    threads.reserve(iThreads);
    for (int i = 0; i < iThreads; ++i)
    {
        threads.emplace_back([this] {
            for (int iThrow = 0; iThrow < 100; ++iThrow)
            {
                m_Object.Trace([] { throw std::runtime_error("worker"); });
            }
        });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(std::count(m_sLog.begin(), m_sLog.end(), L'\n'), 400);
    EXPECT_EQ(CountCalls(), 400U);
}

} // namespace
