#include "tests/windows/CHeldWorker.h"
#include "tests/windows/CRunningApplication.h"

#include <gtest/gtest.h>

#include <vector>

// A request that arrives while the world changes waits for the end of the change. It then means what it meant when it
// was made, and it applies to the state that the change has left. The worker is held, so that the change cannot end
// before the request has arrived.

namespace
{
constexpr LPARAM c_iKeyReleased = static_cast<LPARAM>(0xC0000001);

struct CUserMessage
{
    UINT uMessage;
    WPARAM wParam;
    LPARAM lParam;
};

constexpr CUserMessage c_FullScreenKey{WM_KEYUP, VK_F11, c_iKeyReleased};
constexpr CUserMessage c_Escape{WM_KEYUP, VK_ESCAPE, c_iKeyReleased};
constexpr CUserMessage c_Maximise{WM_SYSCOMMAND, SC_MAXIMIZE, 0};
constexpr CUserMessage c_Restore{WM_SYSCOMMAND, SC_RESTORE, 0};
constexpr CUserMessage c_Click{WM_LBUTTONUP, 0, MAKELPARAM(300, 300)};

class WaitingRequests : public testing::Test
{
protected:
    WaitingRequests()
    {
        m_Application.SetControlText(L"Tot_atoms", L"6");
        m_Application.Do([](CKinetarium& inside) { CKinetariumProbe::Start(inside); });
    }

    void Send(const CUserMessage& message) const
    {
        SendMessageW(m_Application.GetMain(), message.uMessage, message.wParam, message.lParam);
    }

    // Handles the first message while the others wait in the queue, so that they arrive in the middle of its change.
    void SendTogether(const CUserMessage& first, std::initializer_list<CUserMessage> others) const
    {
        m_Worker.Close();
        ASSERT_TRUE(m_Worker.Wait());
        m_Application.Do([&](CKinetarium&) {
            for (const CUserMessage& other : others)
            {
                PostMessageW(m_Application.GetMain(), other.uMessage, other.wParam, other.lParam);
            }
            m_Application.DoLater([&](CKinetarium&) { m_Worker.Open(); });
            Send(first);
        });
        EXPECT_TRUE(m_Application.WaitForRest());
    }

    // Enters full screen and waits until that is done.
    void EnterFullScreen() const
    {
        m_Worker.Open();
        Send(c_FullScreenKey);
        ASSERT_TRUE(m_Application.WaitForRest());
        ASSERT_TRUE(IsFullScreen());
    }

    bool IsFullScreen() const
    {
        bool bFullScreen = false;
        m_Application.Do([&](CKinetarium& inside) { bFullScreen = CKinetariumProbe::IsFullScreen(inside); });
        return bFullScreen;
    }

    void ExpectRunning() const { EXPECT_TRUE(m_Application.WaitForWorker(true)); }

    const CRunningApplication& GetApplication() const { return m_Application; }

private:
    CHeldWorker m_Worker; // before the application, which it must outlive
    CRunningApplication m_Application;
};

std::vector<LPARAM> g_Clicks; // the places of the clicks that the application has taken from its queue

LRESULT CALLBACK NoteClick(int iCode, WPARAM wParam, LPARAM lParam)
{
    const auto& msg = *reinterpret_cast<const MSG*>(lParam);
    if (iCode == HC_ACTION && wParam == PM_REMOVE && msg.message == WM_LBUTTONUP)
    {
        g_Clicks.push_back(msg.lParam);
    }
    return CallNextHookEx(nullptr, iCode, wParam, lParam);
}
} // namespace

TEST_F(WaitingRequests, EscapeRightAfterTheFullScreenKeyLeaves)
{
    SendTogether(c_FullScreenKey, {c_Escape});
    EXPECT_FALSE(IsFullScreen());
    ExpectRunning();
}

TEST_F(WaitingRequests, TwoQuickPressesOfEscapeLeaveOnce)
{
    EnterFullScreen();
    SendTogether(c_Escape, {c_Escape});
    EXPECT_FALSE(IsFullScreen());
    ExpectRunning();
}

TEST_F(WaitingRequests, ThreeQuickPressesOfTheFullScreenKeyLeave)
{
    EnterFullScreen();
    SendTogether(c_FullScreenKey, {c_FullScreenKey, c_FullScreenKey});
    EXPECT_FALSE(IsFullScreen());
}

TEST_F(WaitingRequests, EscapeAfterThreeQuickPressesOfTheFullScreenKeyLeaves)
{
    SendTogether(c_FullScreenKey, {c_FullScreenKey, c_FullScreenKey, c_Escape});
    EXPECT_FALSE(IsFullScreen());
}

TEST_F(WaitingRequests, MaximisingTwiceStaysInFullScreen)
{
    SendTogether(c_Maximise, {c_Maximise});
    EXPECT_TRUE(IsFullScreen());
    ExpectRunning();
}

TEST_F(WaitingRequests, RestoringRightAfterMaximisingLeaves)
{
    SendTogether(c_Maximise, {c_Restore});
    EXPECT_FALSE(IsFullScreen());
    ExpectRunning();
}

TEST_F(WaitingRequests, RestoringTwiceLeavesOnce)
{
    EnterFullScreen();
    SendTogether(c_Restore, {c_Restore});
    EXPECT_FALSE(IsFullScreen());
}

TEST_F(WaitingRequests, MaximisingRightAfterEscapeComesBack)
{
    EnterFullScreen();
    SendTogether(c_Escape, {c_Maximise});
    EXPECT_TRUE(IsFullScreen());
}

TEST_F(WaitingRequests, EscapeInTheMiddleOfAClickLeavesFullScreen)
{
    EnterFullScreen();
    SendTogether(c_Click, {c_Escape});
    EXPECT_FALSE(IsFullScreen());
    ExpectRunning();
}

TEST_F(WaitingRequests, AClickKeepsItsPlace)
{
    g_Clicks.clear();
    HHOOK hHook = nullptr;
    GetApplication().Do(
        [&hHook](CKinetarium&) { hHook = SetWindowsHookExW(WH_GETMESSAGE, NoteClick, nullptr, GetCurrentThreadId()); });
    ASSERT_NE(hHook, nullptr);
    constexpr LPARAM c_iPlace = MAKELPARAM(420, 250);
    SendTogether(c_Click, {{WM_LBUTTONUP, 0, c_iPlace}});
    UnhookWindowsHookEx(hHook);
    EXPECT_EQ(g_Clicks, (std::vector<LPARAM>{c_iPlace, c_iPlace})) << "once in the middle of the change, once after it";
    ExpectRunning();
}

TEST_F(WaitingRequests, EscapeInTheMiddleOfAClickInAWindowDoesNothing)
{
    SendTogether(c_Click, {c_Escape});
    EXPECT_FALSE(IsFullScreen());
    ExpectRunning();
}
