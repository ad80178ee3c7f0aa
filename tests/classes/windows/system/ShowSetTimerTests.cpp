#include "classes/windows/system/ShowSetTimer.h"

#include "tests/classes/windows/CTestMainWindow.h"

#include <gtest/gtest.h>

#include <string>

TEST(ShowSetTimer, ItSetsTheTimerAndNamesItInTheLogIfThereIsOne)
{
    CTestMainWindow window;
    ASSERT_TRUE(window.Create(300, 200));
    std::wstring sLog;
    EXPECT_NE(ShowSetTimer(window.GetWindowHandle(), 5, 10, nullptr, &sLog, &window, L"CLOCK_TIMER"), 0u);
    EXPECT_NE(sLog.find(L"CLOCK_TIMER"), std::wstring::npos);
    EXPECT_NE(sLog.find(L"10 ms"), std::wstring::npos);
    EXPECT_TRUE(KillTimer(window.GetWindowHandle(), 5));
    EXPECT_NE(ShowSetTimer(window.GetWindowHandle(), 5, 10, nullptr, nullptr, nullptr, nullptr), 0u);
    EXPECT_TRUE(KillTimer(window.GetWindowHandle(), 5));
}
