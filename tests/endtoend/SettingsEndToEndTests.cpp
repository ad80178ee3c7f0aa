#include "tests/endtoend/CEndToEndTest.h"
#include "tests/endtoend/CPanelUser.h"
#include "tests/endtoend/CScreenPicture.h"
#include "tests/endtoend/Keyboard.h"
#include "tests/endtoend/UserInput.h"
#include "tests/endtoend/WaitUntil.h"

#include <array>
#include <chrono>

// The settings panel used from another process with real keys and clicks.

namespace
{
using Row = EnumPanelRow;

constexpr auto c_patience = std::chrono::milliseconds(20000);
constexpr DWORD c_uSettleMilliseconds = 300; // time in which something that must not happen would have happened
constexpr int c_iColourOfTheDialog = 720;    // the number of the field of basic colours in the system's colour dialog

constexpr std::array<Row, 12> c_StopsInSpeedMode{Row::Width,     Row::Height,    Row::BackgroundColour, Row::TotalAtoms,
                                                 Row::MinRadius, Row::MaxRadius, Row::ColourMode,       Row::Colour1,
                                                 Row::Factor1,   Row::Colour2,   Row::Colour3,          Row::Factor3};

class SettingsByHand : public CEndToEndTest
{
protected:
    SettingsByHand() : m_panel(m_user) { BringToFront(m_user.GetMainWindow()); }

    std::wstring ReadFile(const wchar_t* sKey) const
    {
        const auto file = m_copy.GetPath().parent_path() / "Kinetarium.ini";
        std::array<wchar_t, MAX_PATH> value{};
        GetPrivateProfileStringW(L"Settings", sKey, L"missing", value.data(), MAX_PATH, file.c_str());
        return value.data();
    }

    // Starts by a click that the panel's settings let come to a message, and gives what it says.
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

    bool IsFullScreen() const { return IsWindowVisible(m_user.GetStatusBar()) == FALSE; }

    CPanelUser m_panel;
};

void ExpectMessage(const CSeenMessage& message, const std::wstring& sTitle, const std::wstring& sText)
{
    EXPECT_EQ(message.title, sTitle);
    EXPECT_EQ(message.text, sText);
    EXPECT_EQ(message.button, L"Ok");
    EXPECT_EQ(message.buttons, 1);
}
} // namespace

TEST_F(SettingsByHand, TabWalksThroughEveryControlInOrderAndWrapsAroundAndShiftWithTabWalksBack)
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

TEST_F(SettingsByHand, ThePanelStartsWithTheDefaultsAndTheSecondFactorOutOfUse)
{
    EXPECT_EQ(m_panel.Read(Row::Width), L"512");
    EXPECT_EQ(m_panel.Read(Row::Height), L"512");
    EXPECT_EQ(m_panel.Read(Row::TotalAtoms), L"256");
    EXPECT_EQ(m_panel.Read(Row::MinRadius), L"3");
    EXPECT_EQ(m_panel.Read(Row::MaxRadius), L"5");
    EXPECT_EQ(m_panel.Read(Row::ColourMode), L"Speed");
    EXPECT_EQ(m_panel.Read(Row::Factor1), L"0.75");
    EXPECT_EQ(m_panel.Read(Row::Factor2), L"");
    EXPECT_FALSE(m_panel.IsEnabled(Row::Factor2));
    EXPECT_EQ(m_panel.Read(Row::Factor3), L"1.25");
    ExpectCleanClose();
}

TEST_F(SettingsByHand, WhatIsTypedAndStartedIsFoundAgainAfterTheNextStartOfTheProgram)
{
    m_panel.Enter(Row::Width, L"400");
    m_panel.Enter(Row::Height, L"300");
    m_panel.Enter(Row::TotalAtoms, L"77");
    m_panel.Enter(Row::MinRadius, L"9");
    m_panel.Enter(Row::MaxRadius, L"4");
    m_panel.ChooseMode(L"Fixed");
    WaitUntil("the second factor to come into use", c_patience, [&] { return m_panel.IsEnabled(Row::Factor2); });
    m_panel.Enter(Row::Factor1, L"12.5%");
    m_panel.Enter(Row::Factor2, L"30");
    m_panel.Clear(Row::Factor3);
    m_user.PressStart();
    m_panel.WaitForText(Row::MinRadius, L"4"); // brought into order
    m_panel.WaitForText(Row::MaxRadius, L"9");
    ExpectCleanClose();
    EXPECT_EQ(ReadFile(L"Atom_colour_1_factor"), L"12.5%");
    EXPECT_EQ(ReadFile(L"Atom_colour_3_factor"), L"");

    const CDrivenProgram program(m_copy.GetPath());
    const CKinetariumUser user(program);
    const CPanelUser panel(user);
    EXPECT_EQ(panel.Read(Row::Width), L"400");
    EXPECT_EQ(panel.Read(Row::Height), L"300");
    EXPECT_EQ(panel.Read(Row::TotalAtoms), L"77");
    EXPECT_EQ(panel.Read(Row::MinRadius), L"4");
    EXPECT_EQ(panel.Read(Row::MaxRadius), L"9");
    EXPECT_EQ(panel.Read(Row::ColourMode), L"Fixed");
    EXPECT_EQ(panel.Read(Row::Factor1), L"12.5%");
    EXPECT_EQ(panel.Read(Row::Factor2), L"30");
    EXPECT_TRUE(panel.IsEnabled(Row::Factor2));
    EXPECT_EQ(panel.Read(Row::Factor3), L"");
    user.Close();
    EXPECT_EQ(program.WaitForExit(c_patience), 0U);
}

TEST_F(SettingsByHand, NumberEntriesTakeDigitsAloneAndNoMoreThanTheirSize)
{
    m_panel.Enter(Row::Width, L"a1-2.3%x4567", L"1234");
    m_panel.Enter(Row::TotalAtoms, L"123456789", L"1234567");
    m_panel.Enter(Row::MinRadius, L"123", L"12");
    m_panel.Enter(Row::Factor1, L"-1.5e2%abcdef", L"-1.5e2%abc");
    ExpectCleanClose();
}

TEST_F(SettingsByHand, ArrowKeysInTheClosedListChooseTheModeAndSpeedEmptiesTheSecondFactor)
{
    m_panel.Click(Row::MaxRadius);
    m_panel.WaitForFocus(m_panel.GetControl(Row::MaxRadius));
    PressKey(VK_TAB);
    m_panel.WaitForFocus(m_panel.GetControl(Row::ColourMode));
    PressKey(VK_UP);
    m_panel.WaitForText(Row::ColourMode, L"Fixed");
    WaitUntil("the second factor to come into use", c_patience, [&] { return m_panel.IsEnabled(Row::Factor2); });
    m_panel.Enter(Row::Factor2, L"50%");
    m_panel.Click(Row::MaxRadius);
    m_panel.WaitForFocus(m_panel.GetControl(Row::MaxRadius));
    PressKey(VK_TAB);
    m_panel.WaitForFocus(m_panel.GetControl(Row::ColourMode));
    PressKey(VK_DOWN);
    m_panel.WaitForText(Row::ColourMode, L"Speed");
    m_panel.WaitForText(Row::Factor2, L"");
    EXPECT_FALSE(m_panel.IsEnabled(Row::Factor2));
    ExpectCleanClose();
}

TEST_F(SettingsByHand, CopyPasteCutAndUndoWorkInAnEntry)
{
    m_panel.Enter(Row::Factor1, L"0.125");
    PressKeyWith(VK_CONTROL, 'A');
    PressKeyWith(VK_CONTROL, 'C');
    m_panel.Clear(Row::Factor3);
    PressKeyWith(VK_CONTROL, 'V');
    m_panel.WaitForText(Row::Factor3, L"0.125");
    PressKeyWith(VK_CONTROL, 'Z');
    m_panel.WaitForText(Row::Factor3, L"");
    m_panel.Click(Row::Factor1);
    m_panel.WaitForFocus(m_panel.GetControl(Row::Factor1));
    PressKeyWith(VK_CONTROL, 'A');
    PressKeyWith(VK_CONTROL, 'X');
    m_panel.WaitForText(Row::Factor1, L"");
    // Only the digits of what was cut fit a number.
    m_panel.Clear(Row::Width);
    PressKeyWith(VK_CONTROL, 'V');
    m_panel.WaitForText(Row::Width, L"0125");
    ExpectCleanClose();
}

TEST_F(SettingsByHand, AFactorThatIsNoNumberIsNamedWithItsOwnTitleAndTheMessageClosesByEnterAndByEscape)
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

TEST_F(SettingsByHand, APercentageInSpeedModeIsRefusedAndTwoBadFactorsGiveTwoMessages)
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

TEST_F(SettingsByHand, OneFactorAloneIsTooFewAndTheMessageClosesByItsButton)
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

TEST_F(SettingsByHand, TheEscapeThatClosesAMessageDoesNotLeaveFullScreen)
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

TEST_F(SettingsByHand, EscapeClosesAnOpenListAndNothingElseAndF11ClosesItToo)
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
    Sleep(GetDoubleClickTime()); // the next click is not to be the second of a double click
    m_panel.Click(Row::ColourMode);
    WaitUntil("the list to open again", c_patience, [&] { return m_panel.IsListOpen(); });
    PressKey(VK_F11);
    WaitUntil("full screen", c_patience, [&] { return IsFullScreen() && !m_panel.IsListOpen(); });
    PressKey(VK_ESCAPE);
    WaitUntil("the window to come back", c_patience, [&] { return !IsFullScreen(); });
    ExpectCleanClose();
}

TEST_F(SettingsByHand, F11AndEscapeWorkWhileAnEntryHasTheFocus)
{
    m_panel.Enter(Row::Width, L"300");
    PressKey(VK_F11);
    WaitUntil("full screen", c_patience, [&] { return IsFullScreen(); });
    PressKey(VK_ESCAPE);
    WaitUntil("the window to come back", c_patience, [&] { return !IsFullScreen(); });
    EXPECT_EQ(m_panel.Read(Row::Width), L"300");
    ExpectCleanClose();
}

TEST_F(SettingsByHand, InALoweredWindowTheWheelAndTheFocusScrollThePanel)
{
    constexpr int c_iWidth = 1000;
    constexpr int c_iHeight = 420;
    SetWindowPos(m_user.GetMainWindow(), nullptr, 0, 0, c_iWidth, c_iHeight, SWP_NOMOVE | SWP_NOZORDER);
    WaitUntil("the last row to be hidden", c_patience, [&] { return !m_panel.IsWhollyVisible(Row::Factor3); });
    const RECT rcWidth = m_panel.GetControlRectangle(Row::Width);
    TurnWheel({(rcWidth.left + rcWidth.right) / 2, (rcWidth.top + rcWidth.bottom) / 2}, -20);
    // The rows move one after the other.
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

TEST_F(SettingsByHand, AColourChosenInTheDialogShowsOnTheButtonAndIsSaved)
{
    m_panel.Click(Row::Colour2);
    const CSeenMessage dialog = m_panel.WaitForMessage();
    RECT rc{};
    GetWindowRect(GetDlgItem(dialog.hWindow, c_iColourOfTheDialog), &rc);
    constexpr LONG c_iIntoFirstField = 8; // pixels
    const POINT firstField = {rc.left + c_iIntoFirstField, rc.top + c_iIntoFirstField};
    const COLORREF crChosen =
        CScreenPicture({firstField.x, firstField.y, firstField.x + 1, firstField.y + 1}).GetPixel(0, 0);
    ClickLeft(firstField);
    PressKey(VK_RETURN);
    m_panel.WaitUntilClosed(dialog.hWindow);
    m_user.RestMouse();
    const RECT rcButton = m_panel.GetControlRectangle(Row::Colour2);
    const POINT middle = {(rcButton.left + rcButton.right) / 2, (rcButton.top + rcButton.bottom) / 2};
    WaitUntil("the button to show the colour", c_patience, [&] {
        return CScreenPicture({middle.x, middle.y, middle.x + 1, middle.y + 1}).GetPixel(0, 0) == crChosen;
    });
    ExpectCleanClose();
    EXPECT_EQ(ReadFile(L"Atom_colour_2"), std::to_wstring(crChosen));
}
