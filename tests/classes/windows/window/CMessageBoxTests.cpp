#include "classes/windows/window/CMessageBox.h"

#include "tests/classes/windows/WindowsTestEnvironment.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>

namespace
{
constexpr const wchar_t* c_sTitle = L"Colour 1 factor";
constexpr const wchar_t* c_sText = L"First line.\n\nThird line, 100% & more.";
constexpr const wchar_t* c_sLabel = L"Righto";

// The message as another thread sees it, like a screen reader or a test driver.
struct CSeen
{
    std::wstring sTitle;
    std::wstring sText;
    std::wstring sLabel;
    bool bOwnerDisabled = false;
    bool bFocusInside = false;
    RECT rc{};
};

HWND WaitForBox()
{
    for (int i = 0; i < 1000; ++i)
    {
        const HWND hBox = FindWindowW(nullptr, c_sTitle);
        if (hBox != nullptr && IsWindowVisible(hBox) && FindWindowExW(hBox, nullptr, L"Button", nullptr) != nullptr)
        {
            return hBox;
        }
        Sleep(5);
    }
    return nullptr;
}

BOOL CALLBACK TakeLongestText(HWND hChild, LPARAM lParam)
{
    auto& sText = *reinterpret_cast<std::wstring*>(lParam);
    wchar_t sClass[32]{};
    GetClassNameW(hChild, sClass, 32);
    if (lstrcmpiW(sClass, L"Static") == 0 && GetText(hChild).size() > sText.size())
    {
        sText = GetText(hChild);
    }
    return TRUE;
}

class MessageBoxTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_Main.Create(800, 600));
        m_Main.AddRows();
        m_hFocus = m_Main.GetPanel().GetCtrlHandle(L"Colour 1 factor", 0);
        SetFocus(m_hFocus);
        m_Main.Pump();
    }

    // Shows the message; another thread reads and then answers it.
    int Show(const std::function<void(HWND)>& answer)
    {
        std::thread other([&] {
            const HWND hBox = WaitForBox();
            m_bFound = hBox != nullptr;
            if (hBox == nullptr)
            {
                PostMessageW(m_Main.GetWindowHandle(), WM_CLOSE, 0, 0);
                return;
            }
            m_Seen.sTitle = GetText(hBox);
            EnumChildWindows(hBox, TakeLongestText, reinterpret_cast<LPARAM>(&m_Seen.sText));
            m_Seen.sLabel = GetText(FindWindowExW(hBox, nullptr, L"Button", nullptr));
            m_Seen.bOwnerDisabled = !IsWindowEnabled(m_Main.GetWindowHandle());
            GetWindowRect(hBox, &m_Seen.rc);
            GUITHREADINFO info{};
            info.cbSize = sizeof(info);
            GetGUIThreadInfo(GetWindowThreadProcessId(hBox, nullptr), &info);
            m_Seen.bFocusInside = info.hwndFocus != nullptr && IsChild(hBox, info.hwndFocus);
            answer(hBox);
        });
        const int iResult = CMessageBox(&m_Main).ShowDialog(c_sText, c_sTitle, 1, c_sLabel);
        other.join();
        EXPECT_TRUE(m_bFound);
        return iResult;
    }

    CTestMainWindow m_Main;
    HWND m_hFocus = nullptr;
    CSeen m_Seen;
    std::atomic<bool> m_bFound = false;
};

void PressKeyIn(HWND hBox, WPARAM wKey)
{
    const HWND hButton = FindWindowExW(hBox, nullptr, L"Button", nullptr);
    PostMessageW(hButton, WM_KEYDOWN, wKey, 1);
    PostMessageW(hButton, WM_KEYUP, wKey, (LPARAM{3} << 30) | 1);
}
} // namespace

TEST_F(MessageBoxTest, ItShowsTitleMultiLineTextAndButtonLabelAndTheButtonClosesIt)
{
    const int iResult =
        Show([](HWND hBox) { SendMessageW(FindWindowExW(hBox, nullptr, L"Button", nullptr), BM_CLICK, 0, 0); });
    EXPECT_EQ(iResult, 1);
    EXPECT_EQ(m_Seen.sTitle, c_sTitle);
    EXPECT_EQ(m_Seen.sText, c_sText);
    EXPECT_EQ(m_Seen.sLabel, c_sLabel);
    EXPECT_EQ(FindWindowW(nullptr, c_sTitle), nullptr);
}

TEST_F(MessageBoxTest, EnterClosesIt)
{
    EXPECT_EQ(Show([](HWND hBox) { PressKeyIn(hBox, VK_RETURN); }), 1);
}

TEST_F(MessageBoxTest, EscapeClosesIt)
{
    EXPECT_EQ(Show([](HWND hBox) { PressKeyIn(hBox, VK_ESCAPE); }), 1);
    EXPECT_TRUE(m_Main.m_keysUp.empty()) << "the main window does not get that Escape";
}

TEST_F(MessageBoxTest, AKeyThatWasDownBeforeItOpenedDoesNotCloseIt)
{
    bool bStayed = false;
    Show([&](HWND hBox) {
        const HWND hButton = FindWindowExW(hBox, nullptr, L"Button", nullptr);
        for (const WPARAM wKey : {WPARAM{VK_RETURN}, WPARAM{VK_ESCAPE}})
        {
            PostMessageW(hButton, WM_KEYDOWN, wKey, (LPARAM{1} << 30) | 1);
        }
        PostMessageW(hButton, WM_KEYUP, VK_RETURN, (LPARAM{3} << 30) | 1);
        // Long enough for the message box to handle all of these keys.
        constexpr DWORD c_uMilliseconds = 300;
        Sleep(c_uMilliseconds);
        bStayed = IsWindow(hBox) != FALSE;
        PressKeyIn(hBox, VK_RETURN);
    });
    EXPECT_TRUE(bStayed);
}

TEST_F(MessageBoxTest, TheCloseBoxClosesIt)
{
    EXPECT_EQ(Show([](HWND hBox) { PostMessageW(hBox, WM_SYSCOMMAND, SC_CLOSE, 0); }), 1);
}

TEST_F(MessageBoxTest, ItIsModalAndRestoresTheFocus)
{
    Show([](HWND hBox) { PressKeyIn(hBox, VK_RETURN); });
    EXPECT_TRUE(m_Seen.bOwnerDisabled);
    EXPECT_TRUE(m_Seen.bFocusInside);
    m_Main.Pump();
    EXPECT_TRUE(IsWindowEnabled(m_Main.GetWindowHandle()));
    EXPECT_EQ(GetFocus(), m_hFocus);
    EXPECT_EQ(GetActiveWindow(), m_Main.GetWindowHandle());
}

TEST_F(MessageBoxTest, ItAppearsInTheMiddleOfItsOwner)
{
    Show([](HWND hBox) { PressKeyIn(hBox, VK_RETURN); });
    RECT rcOwner{};
    GetWindowRect(m_Main.GetWindowHandle(), &rcOwner);
    EXPECT_NEAR(m_Seen.rc.left + m_Seen.rc.right, rcOwner.left + rcOwner.right, 2);
    EXPECT_NEAR(m_Seen.rc.top + m_Seen.rc.bottom, rcOwner.top + rcOwner.bottom, 2);
}

// A minimised window has no place on the screen.
TEST_F(MessageBoxTest, OverAMinimisedOwnerItAppearsInTheMiddleOfTheScreen)
{
    ShowWindow(m_Main.GetWindowHandle(), SW_MINIMIZE);
    m_Main.Pump();
    ASSERT_TRUE(IsIconic(m_Main.GetWindowHandle()));
    Show([](HWND hBox) { PressKeyIn(hBox, VK_RETURN); });
    RECT rcWork{};
    ASSERT_TRUE(SystemParametersInfoW(SPI_GETWORKAREA, 0, &rcWork, 0));
    EXPECT_NEAR(m_Seen.rc.left + m_Seen.rc.right, rcWork.left + rcWork.right, 2);
    EXPECT_NEAR(m_Seen.rc.top + m_Seen.rc.bottom, rcWork.top + rcWork.bottom, 2);
}

// The end of the session, or a task manager, may close the program while a message is shown.
TEST_F(MessageBoxTest, AQuitEndsItAndReachesTheOuterPump)
{
    const HWND hMain = m_Main.GetWindowHandle();
    const int iResult = Show([hMain](HWND) { PostMessageW(hMain, WM_CLOSE, 0, 0); });
    EXPECT_EQ(iResult, 0);
    EXPECT_FALSE(m_Main.OperateMessagePump(nullptr));
    EXPECT_EQ(FindWindowW(nullptr, c_sTitle), nullptr);
}

TEST_F(MessageBoxTest, OtherMessagesAreStillHandledWhileItIsShown)
{
    CTestMainWindow& main = m_Main;
    const HWND hMain = m_Main.GetWindowHandle();
    Show([&main, hMain](HWND hBox) {
        // A worker's synchronous message is answered.
        EXPECT_EQ(SendMessageW(hMain, WM_GETTEXTLENGTH, 0, 0), 4);
        PressKeyIn(hBox, VK_RETURN);
    });
    EXPECT_TRUE(main.OperateMessagePump(nullptr));
}

TEST(MessageBoxAlone, ItWorksWithoutAnOwner)
{
    std::thread other([] {
        if (const HWND hBox = WaitForBox(); hBox != nullptr)
        {
            PressKeyIn(hBox, VK_RETURN);
        }
    });
    EXPECT_EQ(CMessageBox(nullptr).ShowDialog(c_sText, c_sTitle, 1, c_sLabel), 1);
    other.join();
}
