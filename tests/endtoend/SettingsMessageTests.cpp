#include "tests/endtoend/CSettingsTest.h"
#include "tests/endtoend/UserInput.h"
#include "tests/endtoend/WaitUntil.h"

#include <string>

// Tests the messages that refuse a start, and the ways to close them.

namespace
{
using Row = EnumPanelRow;

class SettingsMessagesByHand : public CSettingsTest
{
protected:
    // Clicks Start with settings that lead to a message, and returns that message.
    CSeenMessage StartIntoMessage() const
    {
        m_panel.ClickStart();
        return m_panel.WaitForMessage();
    }

    void CloseMessageBy(WORD uKey, const CSeenMessage& message) const
    {
        PressKey(uKey);
        m_panel.WaitUntilClosed(message.hWindow);
        WaitUntil("the main window to come back", c_patience, [&] {
            return IsWindowEnabled(m_user.GetMainWindow()) != FALSE && GetForegroundWindow() == m_user.GetMainWindow();
        });
    }
};

void ExpectMessage(const CSeenMessage& message, const std::wstring& sTitle, const std::wstring& sText)
{
    EXPECT_EQ(message.title, sTitle);
    EXPECT_EQ(message.text, sText);
    EXPECT_EQ(message.button, L"Ok");
    EXPECT_EQ(message.buttons, 1);
}
} // namespace

TEST_F(SettingsMessagesByHand, AnInvalidFactorHasItsOwnTitleAndTheMessageClosesWithEnterAndWithEscape)
{
    m_panel.Enter(Row::Factor3, L"abc");
    const std::wstring sText =
        L"Colour factor 3 has an invalid value.\n\nYou can use an absolute value, e.g., 123 or a "
        L"percentage, e.g., 12.34%.";
    for (const WORD uKey : {WORD{VK_RETURN}, WORD{VK_ESCAPE}})
    {
        const CSeenMessage message = StartIntoMessage();
        ExpectMessage(message, L"Colour 3 factor", sText);
        EXPECT_EQ(IsWindowEnabled(m_user.GetMainWindow()), FALSE);
        CloseMessageBy(uKey, message);
        EXPECT_EQ(m_user.GetButtonText(), L"Start");
    }
    EXPECT_EQ(m_panel.Read(Row::Factor3), L"abc");
    ExpectCleanClose();
}

TEST_F(SettingsMessagesByHand, APercentageInSpeedModeIsRefusedAndTwoInvalidFactorsGiveTwoMessages)
{
    m_panel.Enter(Row::Factor1, L"x");
    m_panel.Enter(Row::Factor3, L"50%");
    const CSeenMessage first = StartIntoMessage();
    EXPECT_EQ(first.title, L"Colour 1 factor");
    EXPECT_EQ(first.text.substr(0, first.text.find(L'\n')), L"Colour factor 1 has an invalid value.");
    PressKey(VK_ESCAPE);
    m_panel.WaitUntilClosed(first.hWindow);
    const CSeenMessage second = m_panel.WaitForMessage();
    ExpectMessage(second, L"Colour 1 factor",
                  L"Colour factor 3 has an invalid value.\n\nIn speed mode you can only use an absolute value, which "
                  L"denotes the speed of an atom.\nThe average speed of all the atoms is about 1.0.\n\nFactor 1 is the "
                  L"maximum speed an atom may have to belong to the slow atoms (e.g., 0.75).\nFactor 2 is not needed, "
                  L"because the atoms which are neither slow nor fast are automatically colour 2.\nFactor 3 is the "
                  L"minimum speed an atom must have to belong to the fast atoms (e.g., 1.25).");
    CloseMessageBy(VK_RETURN, second);
    ExpectCleanClose();
}

TEST_F(SettingsMessagesByHand, ASingleFactorIsRefusedAndTheMessageClosesWithItsButton)
{
    m_panel.Clear(Row::Factor1);
    const CSeenMessage message = StartIntoMessage();
    ExpectMessage(message, L"Error",
                  L"You need to set exactly two of the three colour factors and leave one factor unset/empty.\nThe "
                  L"remaining atoms (if any) will get the empty/unset factor's colour.\n\nExample:\nFactor 1 = 10, "
                  L"factor 2 = empty, factor 3 = 50%");
    RECT rc{};
    GetWindowRect(FindWindowExW(message.hWindow, nullptr, L"Button", nullptr), &rc);
    ClickLeft({(rc.left + rc.right) / 2, (rc.top + rc.bottom) / 2});
    m_panel.WaitUntilClosed(message.hWindow);
    m_panel.Enter(Row::Factor1, L"0.5");
    m_user.PressStart();
    ExpectCleanClose();
}

TEST_F(SettingsMessagesByHand, TheEscapeThatClosesAMessageDoesNotLeaveFullScreen)
{
    m_panel.Enter(Row::Factor1, L"x");
    PressKey(VK_F11);
    const CSeenMessage message = m_panel.WaitForMessage();
    EXPECT_TRUE(IsFullScreen());
    PressKey(VK_ESCAPE);
    m_panel.WaitUntilClosed(message.hWindow);
    Sleep(c_uSettleMilliseconds);
    EXPECT_TRUE(IsFullScreen());
    EXPECT_EQ(m_panel.FindDialog(), nullptr);
    ExpectCleanClose();
}
