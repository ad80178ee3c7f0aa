#include "classes/windows/system/CDisplayMonitors.h"

#include "classes/windows/system/RectHelpers.h"

#include <gtest/gtest.h>

#include <string>

TEST(DisplayMonitors, TheListHasOneMainMonitorThatBeginsAtTheOrigin)
{
    CDisplayMonitors monitors;
    std::wstring sLog;
    ASSERT_TRUE(monitors.GetDisplayMonitors(&sLog));
    ASSERT_GE(monitors.GetCount(), 1);
    int iMain = 0;
    for (const CDisplayMonitor& monitor : monitors.GetList())
    {
        EXPECT_GT(GetRectWidth(monitor.rc), 0);
        if (!monitor.bMain)
        {
            continue;
        }
        ++iMain;
        EXPECT_EQ(monitor.rc.left, 0);
        EXPECT_EQ(monitor.rc.top, 0);
        EXPECT_EQ(GetRectWidth(monitor.rc), GetSystemMetrics(SM_CXSCREEN));
        EXPECT_EQ(GetRectHeight(monitor.rc), GetSystemMetrics(SM_CYSCREEN)) << "the full area includes the task bar";
    }
    EXPECT_EQ(iMain, 1);
    EXPECT_NE(sLog.find(L"main"), std::wstring::npos);
    ASSERT_TRUE(monitors.GetDisplayMonitors(nullptr));
    EXPECT_EQ(static_cast<std::size_t>(monitors.GetCount()), monitors.GetList().size()) << "the list is replaced";
}
