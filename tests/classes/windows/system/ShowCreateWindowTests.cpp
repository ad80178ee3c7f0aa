#include "classes/windows/system/ShowCreateWindow.h"

#include <gtest/gtest.h>

#include <string>

TEST(ShowCreateWindow, ItWritesClassAndMember)
{
    std::wstring sLog;
    ShowCreateWindow(&sLog, &sLog, L"CWndWorldView", L"m_hWnd", nullptr, nullptr);
    EXPECT_NE(sLog.find(L"CWndWorldView.m_hWnd"), std::wstring::npos);
    EXPECT_EQ(sLog.back(), L'\n');
    ShowCreateWindow(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
}
