#include "tests/classes/windows/WindowsTestEnvironment.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
class TabOrder : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_Main.Create(984, 661));
        m_Main.TabOrder().Clear();
        ASSERT_TRUE(m_Main.AddButton());
        m_Main.TabOrder().AddWindow(m_Main.GetStartButton().GetWindowHandle(), L"Start");
        m_Main.AddRows();
    }

    std::vector<HWND> Stops()
    {
        std::vector<HWND> stops{m_Main.GetStartButton().GetWindowHandle()};
        for (const short i : m_Main.GetRows())
        {
            if (const HWND hStop = m_Main.GetPanel().GetCtrlTabHandle(i); hStop != nullptr)
            {
                stops.push_back(hStop);
            }
        }
        return stops;
    }

    CTestMainWindow m_Main;
};
} // namespace

TEST_F(TabOrder, TabGoesFromTheButtonThroughAllSettingsAndWrapsAround)
{
    const std::vector<HWND> stops = Stops();
    ASSERT_EQ(stops.size(), 14u) << "the button and thirteen settings; headings and dividers are skipped";
    SetFocus(m_Main.GetWindowHandle());
    for (const HWND hStop : stops)
    {
        PressTab(m_Main, false);
        EXPECT_EQ(GetFocus(), hStop);
    }
    PressTab(m_Main, false);
    EXPECT_EQ(GetFocus(), stops.front());
}

TEST_F(TabOrder, ShiftTabGoesBackwardsAndWrapsAround)
{
    const std::vector<HWND> stops = Stops();
    SetFocus(stops[1]);
    PressTab(m_Main, true);
    EXPECT_EQ(GetFocus(), stops[0]);
    PressTab(m_Main, true);
    EXPECT_EQ(GetFocus(), stops.back());
    PressTab(m_Main, true);
    EXPECT_EQ(GetFocus(), stops[stops.size() - 2]);
}

TEST_F(TabOrder, GreyedAndHiddenWindowsAreSkipped)
{
    const std::vector<HWND> stops = Stops();
    CDataCtrlGroup& panel = m_Main.GetPanel();
    panel.ShowState_SetState(panel.GetCtrlIndex(stops[2]), EnumShowState::Greyed);
    ShowWindow(stops[3], SW_HIDE);
    SetFocus(stops[1]);
    PressTab(m_Main, false);
    EXPECT_EQ(GetFocus(), stops[4]);
    PressTab(m_Main, true);
    EXPECT_EQ(GetFocus(), stops[1]);

    panel.ShowState_SetState(panel.GetCtrlIndex(stops[2]), EnumShowState::InUse);
    PressTab(m_Main, false);
    EXPECT_EQ(GetFocus(), stops[2]);
}

TEST_F(TabOrder, WithTheWholePanelHiddenOnlyTheButtonRemains)
{
    ShowWindow(m_Main.GetPanel().GetWindowHandle(), SW_HIDE);
    SetFocus(m_Main.GetWindowHandle());
    PressTab(m_Main, true);
    EXPECT_EQ(GetFocus(), Stops().front());
    PressTab(m_Main, false);
    EXPECT_EQ(GetFocus(), Stops().front());
}

// Alt+Tab and Ctrl+Tab belong to the system and to lists of pages.
TEST_F(TabOrder, TabWithAltOrControlMovesNothing)
{
    const std::vector<HWND> stops = Stops();
    for (const int iModifier : {VK_MENU, VK_CONTROL})
    {
        SetFocus(stops[1]);
        PressTabWith(m_Main, iModifier);
        EXPECT_EQ(GetFocus(), stops[1]) << iModifier;
    }
}

TEST_F(TabOrder, AnEntryReachedByTabHasItsTextSelected)
{
    m_Main.GetPanel().SetValue(L"Width", std::int32_t{512});
    SetFocus(Stops().front());
    PressTab(m_Main, false);
    DWORD uStart = 9;
    DWORD uEnd = 9;
    SendMessageW(GetFocus(), EM_GETSEL, reinterpret_cast<WPARAM>(&uStart), reinterpret_cast<LPARAM>(&uEnd));
    EXPECT_EQ(uStart, 0u);
    EXPECT_EQ(uEnd, 3u);
}

TEST_F(TabOrder, TheTabKeyItselfNeverReachesAnEntry)
{
    CDataCtrlGroup& panel = m_Main.GetPanel();
    panel.SetValue(panel.GetCtrlIndex(L"Colour 1 factor"), L"0.75");
    SetFocus(panel.GetCtrlHandle(L"Colour 1 factor", 0));
    PressTab(m_Main, false);
    EXPECT_EQ(panel.GetValue_String(L"Colour 1 factor").Get(), L"0.75");
}

TEST(TabOrderList, AWindowIsAddedOnlyOnceAndNullNever)
{
    CTabOrder order;
    const HWND hDesktop = GetDesktopWindow();
    order.AddWindow(hDesktop, L"a");
    order.AddWindow(hDesktop, L"b");
    order.AddWindow(nullptr, L"c");
    EXPECT_EQ(order.GetCount(), 1);
    EXPECT_EQ(order.GetWindow(0), hDesktop);
    EXPECT_EQ(order.GetWindow(1), nullptr);
    order.RemoveWindow(hDesktop);
    EXPECT_EQ(order.FindNext(nullptr, false), nullptr) << "an empty order has no stop";
}
