#include "classes/core/OnException.h"

#include "classes/core/ExceptionText.h"
#include "classes/core/SystemMessage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>

namespace
{

struct COwnThrow
{
    int iValue;
};

// An exception whose what() is null.
struct CSilentException : std::exception
{
    const char* what() const noexcept override { return nullptr; }
};

template<class T>
std::wstring Describe(const T& exception)
{
    try
    {
        throw exception; // NOLINT(misc-throw-by-value-catch-by-reference): pointers can be thrown too
    }
    catch (...)
    {
        return DescribeCurrentException();
    }
}

template<class T>
std::wstring Report(const T& exception, const wchar_t* sExtra = nullptr)
{
    std::wstring sLog;
    try
    {
        throw exception;
    }
    catch (...)
    {
        OnException(&sLog, "folder/file.cpp", 412, "bool CThing::Work(int)", "Sun Apr 12 12:57:37 2026", sExtra, false);
    }
    return sLog;
}

std::wstring g_sShown;

void Remember(const std::wstring& sText)
{
    g_sShown += sText;
}

TEST(ExceptionText, StandardExceptionsAreNamedWithTheirText)
{
    EXPECT_EQ(Describe(std::runtime_error("disk full")), L"std::runtime_error \"disk full\"");
    EXPECT_EQ(Describe(std::bad_alloc()), L"std::bad_alloc \"std::bad_alloc\"");
}

TEST(ExceptionText, OtherExceptionsAreNamedByTheirType)
{
    EXPECT_EQ(Describe(5), L"int");
    EXPECT_EQ(Describe(static_cast<const char*>("text")), L"char const*");
    EXPECT_THAT(Describe(COwnThrow{1}), testing::HasSubstr(L"COwnThrow"));
}

TEST(ExceptionText, AnExceptionWithoutTextIsStillNamed)
{
    EXPECT_THAT(Describe(CSilentException()), testing::EndsWith(L"CSilentException"));
}

TEST(ExceptionText, Utf8TextIsDecodedAndInvalidBytesAreReplaced)
{
    EXPECT_EQ(Describe(std::runtime_error("gr\xC3\xBC\xC3\x9F \xFF")), L"std::runtime_error \"gr\u00FC\u00DF \uFFFD\"");
}

TEST(ExceptionText, OutsideAHandlerThereIsNoException)
{
    EXPECT_EQ(DescribeCurrentException(), L"no exception");
}

TEST(OnException, TheReportNamesExceptionFunctionLineFileAndTimeStamp)
{
    EXPECT_EQ(Report(std::runtime_error("disk full")),
              L"Exception: std::runtime_error \"disk full\" in bool CThing::Work(int) - Line 412 - "
              L"File folder/file.cpp (Sun Apr 12 12:57:37 2026)\n");
    EXPECT_THAT(Report(5), testing::StartsWith(L"Exception: int in bool CThing::Work(int) - Line 412 "));
}

TEST(OnException, TheExtraTextIsAdded)
{
    EXPECT_THAT(Report(5, L"while saving"), testing::EndsWith(L"2026): while saving\n"));
}

TEST(OnException, PercentSignsAreText)
{
    EXPECT_THAT(Report(std::runtime_error("100%s %n"), L"5% %i"), testing::HasSubstr(L"\"100%s %n\""));
    EXPECT_THAT(Report(std::runtime_error("100%s %n"), L"5% %i"), testing::EndsWith(L": 5% %i\n"));
}

TEST(OnException, ReportsWithNullArgumentsAndOutsideAHandler)
{
    OnException(nullptr, nullptr, 0, nullptr, nullptr, nullptr, false);
    std::wstring sLog;
    OnException(&sLog, nullptr, 0, nullptr, nullptr, nullptr, false);
    EXPECT_EQ(sLog, L"Exception: no exception in ? - Line 0 - File ? (?)\n");
}

TEST(OnException, TheUserSeesTheReportOnlyOnRequest)
{
    const SystemMessageFunction pBefore = SetSystemMessageFunction(&Remember);
    g_sShown.clear();
    OnException(nullptr, "f", 1, "g", "t", nullptr, false);
    EXPECT_EQ(g_sShown, L"");
    OnException(nullptr, "f", 1, "g", "t", nullptr, true);
    EXPECT_EQ(g_sShown, L"Exception: no exception in g - Line 1 - File f (t)");
    EXPECT_EQ(SetSystemMessageFunction(pBefore), &Remember);
}

TEST(OnException, AFailureInTheReportingIsSwallowed)
{
    const SystemMessageFunction pBefore = SetSystemMessageFunction([](const std::wstring&) { throw std::bad_alloc(); });
    OnException(nullptr, "f", 1, "g", "t", nullptr, true);
    SetSystemMessageFunction(pBefore);
    SUCCEED();
}

} // namespace
