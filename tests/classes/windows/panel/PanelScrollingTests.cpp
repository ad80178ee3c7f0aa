#include "tests/classes/windows/panel/CDataCtrlGroupTest.h"

#include <initializer_list>

namespace
{
constexpr int c_iLowClientHeight = 400;

// Negative: turned towards the user.
WPARAM WheelParameter(int iDelta)
{
    return MAKEWPARAM(0, static_cast<WORD>(static_cast<short>(iDelta)));
}

class LowDataCtrlGroup : public CDataCtrlGroupTest
{
protected:
    void SetUp() override { Start(c_iLowClientHeight); }
    bool IsInView(HWND hWnd) const
    {
        RECT rcClient{};
        GetClientRect(m_hPanel, &rcClient);
        const RECT rc = InPanel(hWnd);
        return rc.top >= 0 && rc.bottom <= rcClient.bottom;
    }
};
} // namespace

TEST_F(LowDataCtrlGroup, APanelLowerThanItsRowsHasAScrollBarThatDoesNotCoverThem)
{
    EXPECT_NE(GetWindowLongW(m_hPanel, GWL_STYLE) & WS_VSCROLL, 0);
    RECT rcClient{};
    GetClientRect(m_hPanel, &rcClient);
    EXPECT_LT(rcClient.right, 240);
    for (const short i : m_Main.GetRows())
    {
        const HWND hControl = Panel().GetCtrlTabHandle(i);
        EXPECT_TRUE(hControl == nullptr || InPanel(hControl).right < rcClient.right) << i;
    }
}

TEST_F(LowDataCtrlGroup, TheFocusScrollsARowIntoView)
{
    EXPECT_FALSE(IsInView(Control(L"Colour 3 factor")));
    SetFocus(Control(L"Colour 3 factor"));
    EXPECT_TRUE(IsInView(Control(L"Colour 3 factor")));
    SetFocus(Control(L"Background colour"));
    EXPECT_TRUE(IsInView(Control(L"Background colour"))) << "also for a button";
    SetFocus(Control(L"Colour mode"));
    EXPECT_TRUE(IsInView(Control(L"Colour mode")));
    SetFocus(Control(L"Width"));
    EXPECT_TRUE(IsInView(Panel().GetCtrlHandle(L"World view", 1))) << "its heading scrolls into view too";
}

TEST_F(LowDataCtrlGroup, TheWheelScrollsOverEveryPartOfThePanel)
{
    const WPARAM wDown = WheelParameter(-WHEEL_DELTA);
    const WPARAM wUp = WheelParameter(WHEEL_DELTA);
    for (const HWND hWnd : {m_hPanel, Control(L"Width"), Control(L"Background colour"), Control(L"Colour mode"),
                            Panel().GetCtrlHandle(L"Height", 1), Panel().GetCtrlHandle(L"Atoms", 1)})
    {
        EXPECT_EQ(GetScrollPos(m_hPanel, SB_VERT), 0);
        SendMessageW(hWnd, WM_MOUSEWHEEL, wDown, 0);
        EXPECT_GT(GetScrollPos(m_hPanel, SB_VERT), 0);
        SendMessageW(hWnd, WM_MOUSEWHEEL, wUp, 0);
    }
    Panel().SetValue(Panel().GetCtrlIndex(L"Colour mode"), L"Fixed", 0);
    SendMessageW(Control(L"Colour mode"), WM_MOUSEWHEEL, wDown, 0);
    EXPECT_EQ(Panel().GetValue_Int32(L"Colour mode"), 0) << "the wheel never changes a closed list";
}

TEST_F(LowDataCtrlGroup, FineWheelMovementsAddUp)
{
    const WPARAM wTenth = WheelParameter(-WHEEL_DELTA / 10);
    const WPARAM wWhole = WheelParameter(-WHEEL_DELTA);
    for (int i = 0; i < 10; ++i)
    {
        SendMessageW(m_hPanel, WM_MOUSEWHEEL, wTenth, 0);
    }
    const int iByTenths = GetScrollPos(m_hPanel, SB_VERT);
    SendMessageW(m_hPanel, WM_VSCROLL, SB_TOP, 0);
    SendMessageW(m_hPanel, WM_MOUSEWHEEL, wWhole, 0);
    EXPECT_EQ(GetScrollPos(m_hPanel, SB_VERT), iByTenths);
}

TEST_F(LowDataCtrlGroup, TheScrollBarStopsAtBothEnds)
{
    RECT rcClient{};
    GetClientRect(m_hPanel, &rcClient);
    SendMessageW(m_hPanel, WM_VSCROLL, SB_BOTTOM, 0);
    EXPECT_EQ(GetScrollPos(m_hPanel, SB_VERT), Panel().GetContentHeight() - rcClient.bottom);
    EXPECT_TRUE(IsInView(Control(L"Colour 3 factor")));
    SendMessageW(m_hPanel, WM_VSCROLL, SB_LINEDOWN, 0);
    SendMessageW(m_hPanel, WM_VSCROLL, SB_PAGEDOWN, 0);
    EXPECT_EQ(GetScrollPos(m_hPanel, SB_VERT), Panel().GetContentHeight() - rcClient.bottom);
    SendMessageW(m_hPanel, WM_VSCROLL, SB_PAGEUP, 0);
    SendMessageW(m_hPanel, WM_VSCROLL, SB_PAGEUP, 0);
    SendMessageW(m_hPanel, WM_VSCROLL, SB_LINEUP, 0);
    EXPECT_EQ(GetScrollPos(m_hPanel, SB_VERT), 0);
}

TEST_F(LowDataCtrlGroup, APanelThatHasGrownHighEnoughScrollsBackAndHasNoBar)
{
    SetFocus(Control(L"Colour 3 factor"));
    ASSERT_GT(GetScrollPos(m_hPanel, SB_VERT), 0);
    MoveWindow(m_hPanel, 700, 60, 240, 600, TRUE);
    m_Main.Pump();
    EXPECT_EQ(GetWindowLongW(m_hPanel, GWL_STYLE) & WS_VSCROLL, 0);
    EXPECT_TRUE(IsInView(Control(L"Width")));
    EXPECT_EQ(InPanel(Control(L"Colour 1")).right, 240);
}

// The smallest possible window leaves 25 pixels for the panel, or none.
TEST_F(LowDataCtrlGroup, EverySizeIsAllowed)
{
    for (const int iHeight : {25, 1, 0, -10, 3000})
    {
        MoveWindow(m_hPanel, 0, 0, 240, iHeight, TRUE);
        m_Main.Pump();
        SetFocus(Control(L"Colour 3 factor"));
        SetFocus(Control(L"Width"));
        MoveWindow(m_hPanel, 0, 0, iHeight, 240, TRUE);
        m_Main.Pump();
    }
    EXPECT_TRUE(IsWindow(m_hPanel));
}
