// A small program that crashes in the requested way, for the tests of the crash report:
//
//   kinetarium-crashing FOLDER HOW [thread]
//
// The report goes to FOLDER. With "thread" the crash happens on a second thread.

#include "classes/core/CExceptionHandler.h"
#include "classes/core/CLibrarySettings.h"
#include "classes/core/CrashNote.h"
#include "classes/windows/crash/CCrashReport.h"

#include <windows.h>

#include <cstdio>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <thread>

namespace
{
constexpr int c_iUnknownRequest = 90;
constexpr int c_iNothingHappened = 91;

void WriteToNowhere()
{
    volatile int* pNowhere = nullptr;
    *pNowhere = 1; // NOLINT(clang-analyzer-core.NullDereference): the fault is intended
}

void DivideByZero()
{
    volatile int iOne = 1;
    volatile int iZero = 0;
    volatile int iResult = iOne / iZero; // NOLINT(clang-analyzer-core.DivideZero): as above
    static_cast<void>(iResult);
}

[[noreturn]] void Throw()
{
    throw std::runtime_error("nobody catches this");
}

[[noreturn]] void ThrowThroughNoexcept() noexcept
{
    Throw();
}

// From now on no other thread can allocate, so not even a thread can start.
void CrashWithLockedHeap()
{
    HeapLock(GetProcessHeap());
    WriteToNowhere();
}

void CrashOnTwoThreads()
{
    std::thread other(WriteToNowhere);
    WriteToNowhere();
    other.join();
}

const std::map<std::wstring, std::function<void()>>& GetWays()
{
    static const std::map<std::wstring, std::function<void()>> ways{
        {L"access", WriteToNowhere},
        {L"divide", DivideByZero},
        {L"throw", Throw},
        {L"noexcept", ThrowThroughNoexcept},
        {L"terminate", [] { std::terminate(); }},
        {L"locked", CrashWithLockedHeap},
        {L"twice", CrashOnTwoThreads},
        {L"nothing", [] {}},
    };
    return ways;
}
} // namespace

int wmain(int iCount, wchar_t** pArguments)
{
    const auto way = iCount > 2 ? GetWays().find(pArguments[2]) : GetWays().end();
    if (way == GetWays().end())
    {
        return c_iUnknownRequest;
    }

    CLibrarySettings settings;
    settings.sProgramName = "Crashing";
    SetLibrarySettings(settings);
    const CExceptionHandler exceptionHandler(nullptr, false);
    const CCrashReport crashReport({pArguments[1], "1.2.3", "some day"});
    SetCrashNote("ending as it was told");
    if (iCount > 3)
    {
        std::thread([&] {
            CCrashReport::PrepareThread();
            way->second();
        }).join();
    }
    else
    {
        way->second();
    }
    return c_iNothingHappened;
}
