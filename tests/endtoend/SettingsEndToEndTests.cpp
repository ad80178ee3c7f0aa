#include "tests/endtoend/CScreenPicture.h"
#include "tests/endtoend/CSettingsTest.h"
#include "tests/endtoend/Keyboard.h"
#include "tests/endtoend/UserInput.h"
#include "tests/endtoend/WaitUntil.h"

#include <array>
#include <string>

// Tests the contents of the settings panel: defaults, typed, pasted and chosen values, and the saved settings.

namespace
{
using Row = EnumPanelRow;

constexpr int c_iColourOfTheDialog = 720; // the identifier of the basic colours in the system's colour dialog

class SettingsByHand : public CSettingsTest
{
protected:
    std::wstring ReadFile(const wchar_t* sKey) const
    {
        const auto file = m_copy.GetPath().parent_path() / "Kinetarium.ini";
        std::array<wchar_t, MAX_PATH> value{};
        GetPrivateProfileStringW(L"Settings", sKey, L"missing", value.data(), MAX_PATH, file.c_str());
        return value.data();
    }
};
} // namespace

TEST_F(SettingsByHand, ThePanelStartsWithTheDefaultsAndTheSecondFactorDisabled)
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

TEST_F(SettingsByHand, TypedSettingsAreRestoredAfterTheProgramRestarts)
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
    m_panel.WaitForText(Row::MinRadius, L"4"); // swapped into order
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

TEST_F(SettingsByHand, NumberEntriesAcceptOnlyDigitsAndNoMoreThanTheirSize)
{
    m_panel.Enter(Row::Width, L"a1-2.3%x4567", L"1234");
    m_panel.Enter(Row::TotalAtoms, L"123456789", L"1234567");
    m_panel.Enter(Row::MinRadius, L"123", L"12");
    m_panel.Enter(Row::Factor1, L"-1.5e2%abcdef", L"-1.5e2%abc");
    ExpectCleanClose();
}

TEST_F(SettingsByHand, ArrowKeysInTheClosedListChooseTheModeAndSpeedClearsTheSecondFactor)
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
    // A number entry accepts only the digits of the cut text.
    m_panel.Clear(Row::Width);
    PressKeyWith(VK_CONTROL, 'V');
    m_panel.WaitForText(Row::Width, L"0125");
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
    COLORREF crChosen{};
    WaitUntil("the dialog to paint its fields", c_patience, [&] {
        crChosen = CScreenPicture({firstField.x, firstField.y, firstField.x + 1, firstField.y + 1}).GetPixel(0, 0);
        return GetRValue(crChosen) != GetGValue(crChosen); // the dialog itself is grey
    });
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

TEST_F(SettingsByHand, TwoWindowsOfOneFolderThatAreClosedTogetherLeaveAWholeFile)
{
    const CDrivenProgram second(m_copy.GetPath());
    const CKinetariumUser secondUser(second);
    m_user.Close();
    secondUser.Close();
    EXPECT_EQ(m_program.WaitForExit(c_patience), 0U);
    EXPECT_EQ(second.WaitForExit(c_patience), 0U);
    for (const wchar_t* const sKey :
         {L"World_width", L"World_height", L"World_background_colour", L"Tot_atoms", L"Atoms_min_radius",
          L"Atoms_max_radius", L"Atoms_colour_mode", L"Atom_colour_1", L"Atom_colour_1_factor", L"Atom_colour_2",
          L"Atom_colour_2_factor", L"Atom_colour_3", L"Atom_colour_3_factor", L"WndLeft", L"WndTop", L"WndRight",
          L"WndBottom"})
    {
        EXPECT_NE(ReadFile(sKey), L"missing") << std::string(sKey, sKey + std::char_traits<wchar_t>::length(sKey));
    }
}
