#include "tests/endtoend/CSettingsTest.h"
#include "tests/endtoend/Keyboard.h"
#include "tests/endtoend/UserInput.h"
#include "tests/endtoend/WaitUntil.h"

#include <array>

// Tests navigation in the settings panel: Tab, the wheel, the open list, and the keys of the main window.

namespace
{
using Row = EnumPanelRow;
using SettingsNavigationByHand = CSettingsTest;

constexpr auto c_StopsInSpeedMode = std::to_array<Row>({
    Row::Width,
    Row::Height,
    Row::BackgroundColour,
    Row::TotalAtoms,
    Row::MinRadius,
    Row::MaxRadius,
    Row::ColourMode,
    Row::Colour1,
    Row::Factor1,
    Row::Colour2,
    Row::Colour3,
    Row::Factor3,
});
} // namespace

TEST_F(SettingsNavigationByHand, TabVisitsEveryControlInOrderAndWrapsAroundAndShiftTabGoesBack)
{
    PressKey(VK_TAB);
    m_panel.WaitForFocus(m_user.GetButton());
    for (const Row eRow : c_StopsInSpeedMode)
    {
        PressKey(VK_TAB);
        m_panel.WaitForFocus(m_panel.GetControl(eRow));
    }
    PressKey(VK_TAB);
    m_panel.WaitForFocus(m_user.GetButton());
    for (auto pRow = c_StopsInSpeedMode.rbegin(); pRow != c_StopsInSpeedMode.rend(); ++pRow)
    {
        PressKeyWith(VK_SHIFT, VK_TAB);
        m_panel.WaitForFocus(m_panel.GetControl(*pRow));
    }
    PressKeyWith(VK_SHIFT, VK_TAB);
    m_panel.WaitForFocus(m_user.GetButton());
    ExpectCleanClose();
}

TEST_F(SettingsNavigationByHand, EscapeClosesOnlyTheOpenListAndF11ClosesItToo)
{
    const RECT rcBefore = m_user.GetWindowRectangle();
    m_panel.Click(Row::ColourMode);
    WaitUntil("the list to open", c_patience, [&] { return m_panel.IsListOpen(); });
    PressKey(VK_ESCAPE);
    WaitUntil("the list to close", c_patience, [&] { return !m_panel.IsListOpen(); });
    Sleep(c_uSettleMilliseconds);
    const RECT rcAfter = m_user.GetWindowRectangle();
    EXPECT_NE(EqualRect(&rcBefore, &rcAfter), FALSE);
    EXPECT_FALSE(IsFullScreen());
    EXPECT_EQ(m_panel.Read(Row::ColourMode), L"Speed");
    EXPECT_EQ(m_panel.GetFocus(), m_panel.GetControl(Row::ColourMode));
    Sleep(GetDoubleClickTime()); // the next click must not become a double click
    m_panel.Click(Row::ColourMode);
    WaitUntil("the list to open again", c_patience, [&] { return m_panel.IsListOpen(); });
    PressKey(VK_F11);
    WaitUntil("full screen", c_patience, [&] { return IsFullScreen() && !m_panel.IsListOpen(); });
    PressKey(VK_ESCAPE);
    WaitUntil("the window to come back", c_patience, [&] { return !IsFullScreen(); });
    ExpectCleanClose();
}

TEST_F(SettingsNavigationByHand, F11AndEscapeWorkWhileAnEntryHasTheFocus)
{
    m_panel.Enter(Row::Width, L"300");
    PressKey(VK_F11);
    WaitUntil("full screen", c_patience, [&] { return IsFullScreen(); });
    PressKey(VK_ESCAPE);
    WaitUntil("the window to come back", c_patience, [&] { return !IsFullScreen(); });
    EXPECT_EQ(m_panel.Read(Row::Width), L"300");
    ExpectCleanClose();
}

TEST_F(SettingsNavigationByHand, InALowWindowTheWheelAndTheFocusScrollThePanel)
{
    constexpr int c_iWidth = 1000;
    constexpr int c_iHeight = 420;
    SetWindowPos(m_user.GetMainWindow(), nullptr, 0, 0, c_iWidth, c_iHeight, SWP_NOMOVE | SWP_NOZORDER);
    WaitUntil("the last row to be hidden", c_patience, [&] { return !m_panel.IsWhollyVisible(Row::Factor3); });
    const RECT rcWidth = m_panel.GetControlRectangle(Row::Width);
    TurnWheel({(rcWidth.left + rcWidth.right) / 2, (rcWidth.top + rcWidth.bottom) / 2}, -20);
    // The rows move one after another.
    WaitUntil("the wheel to show the last row", c_patience,
              [&] { return m_panel.IsWhollyVisible(Row::Factor3) && !m_panel.IsWhollyVisible(Row::Width); });
    m_panel.Enter(Row::Factor3, L"1.5");

    PressKey(VK_TAB);
    m_panel.WaitForFocus(m_user.GetButton());
    PressKey(VK_TAB);
    m_panel.WaitForFocus(m_panel.GetControl(Row::Width));
    WaitUntil("the focus to show the first row", c_patience,
              [&] { return m_panel.IsWhollyVisible(Row::Width) && !m_panel.IsWhollyVisible(Row::Factor3); });
    ExpectCleanClose();
}
