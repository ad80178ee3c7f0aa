#include "classes/core/CExceptionHandler.h"

#include "classes/core/SystemMessage.h"
#include "tests/classes/core/CDebugOutputSwitch.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <gtest/gtest.h>
#include <stdexcept>

namespace
{

// Each of these functions ends a process of its own; the test reads that process's standard error stream.

[[noreturn]] void Throw()
{
    throw std::runtime_error("nobody catches this");
}

// Throws an exception that no handler catches.
[[noreturn]] void ThrowThroughNoexcept() noexcept
{
    Throw();
}

// Writes without buffering, because the process is about to die.
void Say(const char* sText)
{
    static_cast<void>(std::fputs(sText, stderr));
    static_cast<void>(std::fflush(stderr));
}

[[noreturn]] void EndOrderly()
{
    Say("the handler that was there before\n");
    std::_Exit(3);
}

void DieUnderHandler()
{
    const CDebugOutputSwitch debugOutput("1");
    std::set_terminate(&EndOrderly);
    const CExceptionHandler handler(nullptr, false);
    ThrowThroughNoexcept();
}

void DieUnderTwoHandlers()
{
    const CDebugOutputSwitch debugOutput("1");
    std::set_terminate(&EndOrderly);
    const CExceptionHandler outer(nullptr, false);
    const CExceptionHandler inner(nullptr, false);
    ThrowThroughNoexcept();
}

void DieAfterHandler()
{
    const CDebugOutputSwitch debugOutput("1");
    std::set_terminate(&EndOrderly);
    {
        const CExceptionHandler handler(nullptr, false);
    }
    ThrowThroughNoexcept();
}

void DieWithTheLogShown()
{
    std::set_terminate(&EndOrderly);
    static std::wstring sLog;
    SetSystemMessageFunction([](const std::wstring& sText) {
        const bool bWhole = sText == L"Unhandled exception: std::runtime_error \"nobody catches this\"";
        Say(bWhole && sLog == sText + L"\n" ? "shown and logged\n" : "something else\n");
    });
    const CExceptionHandler handler(&sLog, true);
    ThrowThroughNoexcept();
}

void DieWhileReporting()
{
    std::set_terminate(&EndOrderly);
    SetSystemMessageFunction([](const std::wstring&) { throw std::bad_alloc(); });
    const CExceptionHandler handler(nullptr, true);
    ThrowThroughNoexcept();
}

TEST(ExceptionHandlerDeathTest, AnExceptionThatNobodyCatchesIsNamed)
{
    EXPECT_DEATH(DieUnderHandler(), "Unhandled exception: std::runtime_error \"nobody catches this\"");
}

TEST(ExceptionHandlerDeathTest, ThePreviousHandlerHasTheLastWord)
{
    EXPECT_EXIT(DieUnderHandler(), testing::ExitedWithCode(3), "the handler that was there before");
}

TEST(ExceptionHandlerDeathTest, TwoNestedHandlersReportAndEnd)
{
    EXPECT_EXIT(DieUnderTwoHandlers(), testing::ExitedWithCode(3), "nobody catches this");
}

TEST(ExceptionHandlerDeathTest, ADestroyedHandlerRestoresThePreviousOne)
{
    EXPECT_EXIT(DieAfterHandler(), testing::ExitedWithCode(3), "^the handler that was there before");
}

TEST(ExceptionHandlerDeathTest, TheReportGoesToTheLogAndIsShownWhenAsked)
{
    EXPECT_EXIT(DieWithTheLogShown(), testing::ExitedWithCode(3), "shown and logged");
}

TEST(ExceptionHandlerDeathTest, AFailureInTheReportStillEndsOrderly)
{
    EXPECT_EXIT(DieWhileReporting(), testing::ExitedWithCode(3), "the handler that was there before");
}

#ifdef _WIN32

void DieOfAFault()
{
    const CDebugOutputSwitch debugOutput("1");
    const CExceptionHandler handler(nullptr, false);
    volatile int* pNowhere = nullptr;
    *pNowhere = 1;
}

TEST(ExceptionHandlerDeathTest, AFaultIsNamedByItsCode)
{
    EXPECT_DEATH(DieOfAFault(), "Unhandled exception: fault 0xc0000005 at address 0x");
}

#endif

TEST(ExceptionHandler, CaughtExceptionsAreNotAffected)
{
    const std::terminate_handler pBefore = std::get_terminate();
    {
        const CExceptionHandler handler(nullptr, false);
        EXPECT_NE(pBefore, std::get_terminate());
        EXPECT_THROW(throw std::runtime_error("caught"), std::runtime_error);
    }
    EXPECT_EQ(pBefore, std::get_terminate());
}

} // namespace
