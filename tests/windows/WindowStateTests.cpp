#include "tests/windows/CRunningApplication.h"

#include <gtest/gtest.h>

// The main window in each of its states (normal, minimised, maximised, full screen) and on the ways between them. A
// window becomes maximised without a command too: by snapping, by a shortcut, by another program.

namespace
{
constexpr LPARAM c_iKeyReleased = static_cast<LPARAM>(0xC0000001);

class WindowState : public testing::Test
{
protected:
    WindowState()
    {
        m_Application.SetControlText(L"Tot_atoms", L"5");
        SetWindowPos(GetMain(), nullptr, 20, 30, 640, 480, SWP_NOZORDER);
        m_rcNormal = GetRectangle();
    }

    HWND GetMain() const { return m_Application.GetMain(); }
    void PressF11() const { SendMessageW(GetMain(), WM_KEYUP, VK_F11, c_iKeyReleased); }
    void Command(WPARAM uCommand) const { SendMessageW(GetMain(), WM_SYSCOMMAND, uCommand, 0); }

    RECT GetRectangle() const
    {
        RECT rc{};
        GetWindowRect(GetMain(), &rc);
        return rc;
    }

    bool IsFullScreen() const
    {
        bool bFullScreen = false;
        m_Application.Do([&](CKinetarium& inside) { bFullScreen = CKinetariumProbe::IsFullScreen(inside); });
        return bFullScreen;
    }

    void ExpectNormal() const
    {
        EXPECT_FALSE(IsFullScreen());
        EXPECT_FALSE(IsZoomed(GetMain()));
        EXPECT_FALSE(IsIconic(GetMain()));
        const RECT rc = GetRectangle();
        EXPECT_TRUE(EqualRect(&rc, &m_rcNormal)) << rc.left << ' ' << rc.top << ' ' << rc.right << ' ' << rc.bottom;
        EXPECT_EQ(GetWindowLongW(GetMain(), GWL_STYLE) & WS_CAPTION, WS_CAPTION);
    }

    void ExpectStoredNormal() const
    {
        EXPECT_EQ(CRunningApplication::ReadSetting(L"WndLeft"), std::to_wstring(m_rcNormal.left));
        EXPECT_EQ(CRunningApplication::ReadSetting(L"WndTop"), std::to_wstring(m_rcNormal.top));
        EXPECT_EQ(CRunningApplication::ReadSetting(L"WndRight"), std::to_wstring(m_rcNormal.right));
        EXPECT_EQ(CRunningApplication::ReadSetting(L"WndBottom"), std::to_wstring(m_rcNormal.bottom));
    }

    RECT GetMonitor() const
    {
        MONITORINFO monitor{};
        monitor.cbSize = sizeof monitor;
        GetMonitorInfoW(MonitorFromWindow(GetMain(), MONITOR_DEFAULTTOPRIMARY), &monitor);
        return monitor.rcMonitor;
    }

    HWND GetPanel() const
    {
        HWND hPanel = nullptr;
        m_Application.Do([&](CKinetarium& inside) { hPanel = CKinetariumProbe::GetPanel(inside); });
        return hPanel;
    }

    void ExpectFullScreen() const
    {
        EXPECT_TRUE(IsFullScreen());
        EXPECT_FALSE(IsIconic(GetMain()));
        const RECT rc = GetRectangle();
        const RECT rcMonitor = GetMonitor();
        EXPECT_TRUE(EqualRect(&rc, &rcMonitor)) << rc.left << ' ' << rc.top << ' ' << rc.right << ' ' << rc.bottom;
        EXPECT_FALSE(IsWindowVisible(GetPanel()));
        CSize<int> world;
        m_Application.Do([&](CKinetarium& inside) { world = CKinetariumProbe::GetWorldSize(inside); });
        EXPECT_EQ(world, (CSize<int>{rcMonitor.right - rcMonitor.left, rcMonitor.bottom - rcMonitor.top}));
    }

    CRunningApplication m_Application;
    RECT m_rcNormal{};
};
} // namespace

TEST_F(WindowState, AWindowThatWasMaximisedWithoutACommandCanBeRestored)
{
    ShowWindow(GetMain(), SW_SHOWMAXIMIZED);
    ASSERT_TRUE(IsZoomed(GetMain()));
    Command(SC_RESTORE);
    ExpectNormal();
}

TEST_F(WindowState, AMaximisedWindowIsMaximisedAgainAfterFullScreenAndCanBeRestored)
{
    ShowWindow(GetMain(), SW_SHOWMAXIMIZED);
    const RECT rcMaximised = GetRectangle();
    PressF11();
    ASSERT_TRUE(IsFullScreen());
    Command(SC_RESTORE);
    EXPECT_FALSE(IsFullScreen());
    EXPECT_TRUE(IsZoomed(GetMain()));
    const RECT rc = GetRectangle();
    EXPECT_TRUE(EqualRect(&rc, &rcMaximised));

    Command(SC_RESTORE);
    ExpectNormal();
}

TEST_F(WindowState, AFullScreenWindowThatAnotherProgramMaximisesIsFramedAgainAfterwards)
{
    ShowWindow(GetMain(), SW_SHOWMAXIMIZED);
    const RECT rcMaximised = GetRectangle();
    PressF11();
    ShowWindow(GetMain(), SW_SHOWMAXIMIZED);
    ExpectFullScreen();
    PressF11();
    EXPECT_FALSE(IsFullScreen());
    const RECT rc = GetRectangle();
    EXPECT_TRUE(EqualRect(&rc, &rcMaximised)) << rc.left << ' ' << rc.top << ' ' << rc.right << ' ' << rc.bottom;

    Command(SC_RESTORE);
    ExpectNormal();
}

TEST_F(WindowState, AFullScreenWindowThatAnotherProgramMaximisesReturnsToItsOwnRectangleAlsoWhenItIsMinimised)
{
    PressF11();
    ShowWindow(GetMain(), SW_SHOWMAXIMIZED);
    Command(SC_MINIMIZE);
    PressF11();
    ExpectNormal();
}

TEST_F(WindowState, AWindowThatWasMaximisedByItsPlacementCanBeRestored)
{
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    ASSERT_TRUE(GetWindowPlacement(GetMain(), &placement));
    placement.showCmd = SW_SHOWMAXIMIZED;
    ASSERT_TRUE(SetWindowPlacement(GetMain(), &placement));
    ASSERT_TRUE(IsZoomed(GetMain()));
    Command(SC_RESTORE);
    ExpectNormal();
}

TEST_F(WindowState, ClosingInFullScreenStoresTheRectangleOfTheWindow)
{
    PressF11();
    ASSERT_TRUE(IsFullScreen());
    ASSERT_TRUE(m_Application.Close());
    ExpectStoredNormal();
}

TEST_F(WindowState, TheEndOfTheSessionInFullScreenStoresTheRectangleOfTheWindow)
{
    PressF11();
    ASSERT_TRUE(IsFullScreen());
    SendMessageW(GetMain(), WM_ENDSESSION, TRUE, 0);
    ExpectStoredNormal();
}

TEST_F(WindowState, ClosingAMinimisedFullScreenStoresTheRectangleOfTheWindow)
{
    PressF11();
    Command(SC_MINIMIZE);
    ASSERT_TRUE(IsFullScreen());
    ASSERT_TRUE(IsIconic(GetMain()));
    ASSERT_TRUE(m_Application.Close());
    ExpectStoredNormal();
}

TEST_F(WindowState, ClosingInFullScreenAfterBeingMaximisedStoresTheRestoredRectangle)
{
    ShowWindow(GetMain(), SW_SHOWMAXIMIZED);
    PressF11();
    ASSERT_TRUE(IsFullScreen());
    ASSERT_TRUE(m_Application.Close());
    ExpectStoredNormal();
}

TEST_F(WindowState, AWindowThatWasMinimisedWhileMaximisedStoresItsRestoredRectangle)
{
    ShowWindow(GetMain(), SW_SHOWMAXIMIZED);
    Command(SC_MINIMIZE);
    ASSERT_TRUE(IsIconic(GetMain()));
    ASSERT_TRUE(m_Application.Close());
    ExpectStoredNormal();
}

TEST_F(WindowState, MaximisingAMinimisedWindowShowsTheWorldOverTheWholeMonitor)
{
    Command(SC_MINIMIZE);
    ASSERT_TRUE(IsIconic(GetMain()));
    Command(SC_MAXIMIZE);
    ExpectFullScreen();

    Command(SC_RESTORE);
    ExpectNormal();
    EXPECT_TRUE(IsWindowVisible(GetPanel()));
}

TEST_F(WindowState, AWindowThatWasMinimisedWhileMaximisedIsMaximisedAgainAfterFullScreen)
{
    ShowWindow(GetMain(), SW_SHOWMAXIMIZED);
    Command(SC_MINIMIZE);
    Command(SC_MAXIMIZE);
    ExpectFullScreen();

    PressF11();
    EXPECT_FALSE(IsFullScreen());
    EXPECT_TRUE(IsZoomed(GetMain()));
    Command(SC_RESTORE);
    ExpectNormal();
}

TEST_F(WindowState, MaximisingAMinimisedFullScreenBringsItBack)
{
    PressF11();
    Command(SC_MINIMIZE);
    ASSERT_TRUE(IsIconic(GetMain()));
    Command(SC_MAXIMIZE);
    ExpectFullScreen();

    PressF11();
    ExpectNormal();
}

TEST_F(WindowState, AFullScreenThatWasEnteredFromAMaximisedWindowComesBackFromBeingMinimised)
{
    ShowWindow(GetMain(), SW_SHOWMAXIMIZED);
    PressF11();
    Command(SC_MINIMIZE);
    Command(SC_RESTORE);
    ExpectFullScreen();
}

TEST_F(WindowState, F11OnAMinimisedWindowShowsTheWorldOverTheWholeMonitor)
{
    Command(SC_MINIMIZE);
    ASSERT_TRUE(IsIconic(GetMain()));
    PressF11();
    ExpectFullScreen();

    PressF11();
    ExpectNormal();
}

// Minimised by a message that the change itself dispatches, just before the start of the new world.
TEST_F(WindowState, AWindowThatIsMinimisedWhileItEntersFullScreenGetsAWorldOfTheScreensSize)
{
    m_Application.Do([&](CKinetarium&) {
        PostMessageW(GetMain(), WM_SYSCOMMAND, SC_MINIMIZE, 0);
        PressF11();
    });
    ASSERT_TRUE(IsFullScreen());
    ASSERT_TRUE(IsIconic(GetMain()));
    CSize<int> world;
    m_Application.Do([&](CKinetarium& inside) { world = CKinetariumProbe::GetWorldSize(inside); });
    const RECT rcMonitor = GetMonitor();
    EXPECT_EQ(world, (CSize<int>{rcMonitor.right - rcMonitor.left, rcMonitor.bottom - rcMonitor.top}));

    Command(SC_RESTORE);
    ExpectFullScreen();
}
