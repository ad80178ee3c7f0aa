#include "classes/core/OutputDebugMessage.h"

#include "classes/core/CWString.h"
#include "tests/classes/core/CDebugOutputSwitch.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace
{

// The bytes that write sends to the standard error stream.
template<class F>
std::string CaptureStandardError(F&& write)
{
    testing::internal::CaptureStderr();
    write();
    return testing::internal::GetCapturedStderr();
}

TEST(OutputDebugMessage, AMessageIsFormattedAndAppendedToTheLog)
{
    std::wstring sLog = L"earlier\n";
    OutputDebugMessage(&sLog, L"%s\n", CWString(L"Iter = 1"));
    OutputDebugMessage(&sLog, L"returned 0x%x\n", static_cast<std::int32_t>(0x8899000C));
    EXPECT_EQ(sLog, L"earlier\nIter = 1\nreturned 0x8899000c\n");
}

TEST(OutputDebugMessage, ANullLogIsAllowed)
{
    OutputDebugMessage(nullptr, L"%i %s\n", 1, L"text");
    WriteDebugText(nullptr, L"text");
    SUCCEED();
}

TEST(OutputDebugMessage, AFormatThatDoesNotFitItsArgumentsIsWrittenItself)
{
    std::wstring sLog;
    OutputDebugMessage(&sLog, L"%i of %i\n", 1);
    OutputDebugMessage(&sLog, L"100%");
    EXPECT_EQ(sLog, L"%i of %i\n100%");
}

TEST(OutputDebugMessage, TheStandardErrorStreamGetsTheMessageOnlyIfTheVariableIsSet)
{
    const auto write = [] { OutputDebugMessage(nullptr, L"gr\u00FC\u00DF %i\n", 5); };
    {
        const CDebugOutputSwitch debugOutput(nullptr);
        EXPECT_EQ(CaptureStandardError(write), "");
    }
    const CDebugOutputSwitch debugOutput("1");
    EXPECT_EQ(CaptureStandardError(write), "gr\xC3\xBC\xC3\x9F 5\n");
}

TEST(OutputDebugMessage, WithoutTheNameOfAVariableTheStandardErrorStreamGetsNothing)
{
    const CLibrarySettingsChange settings{CLibrarySettings()};
    EXPECT_EQ(CaptureStandardError([] { OutputDebugMessage(nullptr, L"text"); }), "");
}

TEST(OutputDebugMessage, MessagesOfManyThreadsDoNotMix)
{
    constexpr int iThreads = 4;
    constexpr int iMessages = 2000;
    std::wstring sLog;
    {
        std::vector<std::jthread> threads;
        threads.reserve(iThreads);
        for (int iThread = 0; iThread < iThreads; ++iThread)
        {
            threads.emplace_back([&sLog, iThread] {
                for (int i = 0; i < iMessages; ++i)
                {
                    OutputDebugMessage(&sLog, L"[%04i]", iThread);
                }
            });
        }
    }
    ASSERT_EQ(sLog.size(), std::size_t{6} * iThreads * iMessages);
    for (std::size_t u = 0; u < sLog.size(); u += 6)
    {
        ASSERT_TRUE(sLog[u] == L'[' && sLog[u + 5] == L']');
    }
    for (int iThread = 0; iThread < iThreads; ++iThread)
    {
        EXPECT_EQ(std::count(sLog.begin(), sLog.end(), static_cast<wchar_t>(L'0' + iThread)),
                  iMessages + (iThread == 0 ? 3 * iThreads * iMessages : 0));
    }
}

} // namespace
