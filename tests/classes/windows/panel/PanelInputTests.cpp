// Tests the panel's controls with keyboard, clipboard and mouse.
#include "tests/classes/windows/WindowsTestEnvironment.h"

#include <gtest/gtest.h>

namespace
{
class PanelInput : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_Main.Create(984, 661));
        m_Main.AddRows();
        m_hNumber = Panel().GetCtrlHandle(L"Tot atoms", 0);       // at most 7 digits
        m_hFactor = Panel().GetCtrlHandle(L"Colour 1 factor", 0); // at most 10 characters
        m_hList = Panel().GetCtrlHandle(L"Colour mode", 0);
        Panel().SetValue(Panel().GetCtrlIndex(L"Colour mode"), L"Fixed", 0);
        SetFocus(m_hNumber);
        m_Main.m_commands.clear();
        m_Main.m_keysUp.clear();
    }

    CDataCtrlGroup& Panel() { return m_Main.GetPanel(); }

    void Paste(HWND hEntry, const std::wstring& sText)
    {
        ASSERT_TRUE(SetClipboardText(m_Main.GetWindowHandle(), sText));
        SendMessageW(hEntry, WM_PASTE, 0, 0);
    }

    int CountCommands(UINT uCode) const
    {
        int iCount = 0;
        for (const CTestMainWindow::CNotice& command : m_Main.m_commands)
        {
            iCount += command.uCode == uCode;
        }
        return iCount;
    }

    CTestMainWindow m_Main;
    HWND m_hNumber = nullptr;
    HWND m_hFactor = nullptr;
    HWND m_hList = nullptr;
};

constexpr wchar_t c_cBackspace = 0x08;
} // namespace

TEST_F(PanelInput, ANumberEntryAcceptsOnlyDigitsFromTheKeyboard)
{
    TypeText(m_Main, m_hNumber, L"a1-2 .3,4%e5+x\x0661");
    EXPECT_EQ(GetText(m_hNumber), L"12345");
}

TEST_F(PanelInput, ANumberEntryAcceptsNoMoreThanItsSize)
{
    TypeText(m_Main, m_hNumber, L"123456789");
    EXPECT_EQ(GetText(m_hNumber), L"1234567");
    TypeText(m_Main, m_hNumber, std::wstring(1, c_cBackspace) + L"0");
    EXPECT_EQ(GetText(m_hNumber), L"1234560");
}

TEST_F(PanelInput, AFactorEntryAcceptsAnyTextUpToItsSize)
{
    TypeText(m_Main, m_hFactor, L"12.34% ab-cde");
    EXPECT_EQ(GetText(m_hFactor), L"12.34% ab-");
}

TEST_F(PanelInput, PastedTextIsReducedToDigitsAndTruncatedToTheSize)
{
    Paste(m_hNumber, L"x1,000,000,000");
    EXPECT_EQ(GetText(m_hNumber), L"1000000");
    SendMessageW(m_hNumber, EM_SETSEL, 0, -1);
    Paste(m_hNumber, L"no digits");
    EXPECT_EQ(GetText(m_hNumber), L"1000000") << "no character is accepted, so nothing is replaced";
}

TEST_F(PanelInput, PastingReplacesTheSelectionAndFillsOnlyTheRemainingRoom)
{
    TypeText(m_Main, m_hNumber, L"1234567");
    SendMessageW(m_hNumber, EM_SETSEL, 1, 3);
    Paste(m_hNumber, L"999999");
    EXPECT_EQ(GetText(m_hNumber), L"1994567");
}

TEST_F(PanelInput, AFactorEntryAcceptsTheFirstLineOfAPastedText)
{
    Paste(m_hFactor, L"50%\r\n75%");
    EXPECT_EQ(GetText(m_hFactor), L"50%");
    SendMessageW(m_hFactor, EM_SETSEL, 0, -1);
    Paste(m_hFactor, L"0.123456789012");
    EXPECT_EQ(GetText(m_hFactor), L"0.12345678");
}

TEST_F(PanelInput, ThePasteKeysUseTheSameFilter)
{
    ASSERT_TRUE(SetClipboardText(m_Main.GetWindowHandle(), L"a12b"));
    TypeText(m_Main, m_hNumber, L"\x16"); // Ctrl+V
    EXPECT_EQ(GetText(m_hNumber), L"12");
}

TEST_F(PanelInput, SelectAllCopyCutAndUndoWork)
{
    TypeText(m_Main, m_hFactor, L"0.75");
    TypeText(m_Main, m_hFactor, L"\x01"); // Ctrl+A
    DWORD uStart = 9;
    DWORD uEnd = 9;
    SendMessageW(m_hFactor, EM_GETSEL, reinterpret_cast<WPARAM>(&uStart), reinterpret_cast<LPARAM>(&uEnd));
    EXPECT_EQ(uStart, 0u);
    EXPECT_EQ(uEnd, 4u);
    TypeText(m_Main, m_hFactor, L"\x03"); // Ctrl+C
    SendMessageW(m_hFactor, EM_SETSEL, 4, 4);
    TypeText(m_Main, m_hFactor, L"\x16");
    EXPECT_EQ(GetText(m_hFactor), L"0.750.75");
    TypeText(m_Main, m_hFactor, L"\x1A"); // Ctrl+Z
    EXPECT_EQ(GetText(m_hFactor), L"0.75") << "the paste is undone";
    TypeText(m_Main, m_hFactor, L"\x01\x18"); // Ctrl+A, Ctrl+X
    EXPECT_EQ(GetText(m_hFactor), L"");
}

TEST_F(PanelInput, F11AndEscapeReachTheMainWindowFromEveryControl)
{
    for (const short i : m_Main.GetRows())
    {
        const HWND hControl = Panel().GetCtrlTabHandle(i);
        if (hControl == nullptr)
        {
            continue;
        }
        SetFocus(hControl);
        m_Main.m_keysUp.clear();
        PressKey(m_Main, VK_F11);
        PressKey(m_Main, VK_ESCAPE);
        EXPECT_EQ(m_Main.m_keysUp, (std::vector<WPARAM>{VK_F11, VK_ESCAPE})) << i;
        EXPECT_EQ(GetFocus(), hControl) << i;
    }
}

TEST_F(PanelInput, TheEscapeThatClosesAnOpenListIsNotForwarded)
{
    SetFocus(m_hList);
    SendMessageW(m_hList, CB_SHOWDROPDOWN, TRUE, 0);
    ASSERT_TRUE(SendMessageW(m_hList, CB_GETDROPPEDSTATE, 0, 0));
    PressKey(m_Main, VK_ESCAPE);
    EXPECT_FALSE(SendMessageW(m_hList, CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_TRUE(m_Main.m_keysUp.empty());
    PressKey(m_Main, VK_ESCAPE);
    EXPECT_EQ(m_Main.m_keysUp, std::vector<WPARAM>{VK_ESCAPE}) << "the next one is forwarded";
}

TEST_F(PanelInput, F11ClosesAnOpenListAndIsForwarded)
{
    SetFocus(m_hList);
    SendMessageW(m_hList, CB_SHOWDROPDOWN, TRUE, 0);
    PressKey(m_Main, VK_F11);
    EXPECT_FALSE(SendMessageW(m_hList, CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_EQ(m_Main.m_keysUp, std::vector<WPARAM>{VK_F11});
}

TEST_F(PanelInput, AnArrowKeyInTheClosedListSelectsAndNotifiesTheMainWindow)
{
    SetFocus(m_hList);
    m_Main.m_commands.clear();
    PressKey(m_Main, VK_DOWN);
    EXPECT_EQ(Panel().GetValue_Int32(L"Colour mode"), 1);
    EXPECT_GE(CountCommands(CBN_SELENDOK), 1);
    m_Main.m_commands.clear();
    PressKey(m_Main, VK_UP);
    EXPECT_EQ(Panel().GetValue_Int32(L"Colour mode"), 0);
    EXPECT_GE(CountCommands(CBN_SELENDOK), 1);
}

TEST_F(PanelInput, ASelectionInTheOpenListIsNotifiedOnceWithTheListAsSender)
{
    SetFocus(m_hList);
    SendMessageW(m_hList, CB_SHOWDROPDOWN, TRUE, 0);
    PressKey(m_Main, VK_DOWN);
    PressKey(m_Main, VK_RETURN);
    EXPECT_EQ(Panel().GetValue_Int32(L"Colour mode"), 1);
    EXPECT_EQ(CountCommands(CBN_SELENDOK), 1);
    for (const CTestMainWindow::CNotice& command : m_Main.m_commands)
    {
        EXPECT_EQ(command.hFrom, m_hList);
    }
}

TEST_F(PanelInput, NotificationsOfEntriesStayInThePanel)
{
    m_Main.m_commands.clear();
    TypeText(m_Main, m_hNumber, L"12");
    SetFocus(m_hFactor);
    m_Main.Pump();
    EXPECT_TRUE(m_Main.m_commands.empty());
}

TEST_F(PanelInput, EnterInAnEntryChangesNothing)
{
    TypeText(m_Main, m_hFactor, L"1\r2");
    EXPECT_EQ(GetText(m_hFactor), L"12");
}
