#pragma once

#include "classes/windows/panel/CDataCtrlGroup.h"

#include "tests/classes/windows/WindowsTestEnvironment.h"

#include <gtest/gtest.h>

// The panel with all its rows on a window of the program's default size.
class CDataCtrlGroupTest : public testing::Test
{
protected:
    static constexpr int c_iDefaultClientHeight = 661; // of the program's window of 1000 x 700

    void SetUp() override { Start(c_iDefaultClientHeight); }

    void Start(int iHeight)
    {
        ASSERT_TRUE(m_Main.Create(984, iHeight));
        m_Main.AddRows();
        m_hPanel = Panel().GetWindowHandle();
    }

    CDataCtrlGroup& Panel() { return m_Main.GetPanel(); }
    HWND Control(const wchar_t* sLabel) { return Panel().GetCtrlHandle(sLabel, 0); }

    RECT InPanel(HWND hWnd) const
    {
        RECT rc{};
        GetWindowRect(hWnd, &rc);
        MapWindowPoints(nullptr, m_hPanel, reinterpret_cast<POINT*>(&rc), 2);
        return rc;
    }

    CTestMainWindow m_Main;
    HWND m_hPanel = nullptr;
};
