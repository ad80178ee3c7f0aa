#include "tests/endtoend/CStorm.h"

#include "tests/endtoend/MouseGestures.h"
#include "tests/endtoend/UserInput.h"
#include "tests/endtoend/WindowSearch.h"

#include <array>
#include <chrono>
#include <vector>

// The single actions of the storm.

namespace
{
constexpr auto c_dialogPatience = std::chrono::milliseconds(1000);
constexpr DWORD c_uBreathMilliseconds = 30; // between two checks for an opening dialog
} // namespace

void CStorm::ClickWorld()
{
    ClickLeft(m_chance.ChoosePoint(m_user.GetWorldView()));
}

void CStorm::RightClickWorld()
{
    ClickRight(m_chance.ChoosePoint(m_user.GetWorldView()));
}

void CStorm::ClickAnywhere()
{
    ClickLeft(m_chance.ChoosePoint(m_user.GetMainWindow()));
}

void CStorm::ClickButton()
{
    // It may be unreachable: hidden in full screen, or, in a small window, covered by the view or outside the screen.
    const POINT middle = MiddleOf(m_user.GetButton());
    if (WindowFromPoint(middle) == m_user.GetButton())
    {
        ClickLeft(middle);
    }
}

void CStorm::PressAnyKey()
{
    constexpr std::array<WORD, 16> c_uKeys{VK_TAB,  VK_TAB, VK_SPACE, VK_RETURN, VK_ESCAPE, VK_UP,   VK_DOWN, VK_LEFT,
                                           VK_HOME, VK_END, VK_PRIOR, VK_NEXT,   VK_DELETE, VK_BACK, 'X',     'P'};
    PressKey(m_chance.ChooseFrom(c_uKeys));
}

void CStorm::Roll()
{
    constexpr int c_iMostNotches = 3;
    RollWheel(m_chance.ChoosePoint(m_user.GetMainWindow()),
              m_chance.Choose(-c_iMostNotches, c_iMostNotches) * WHEEL_DELTA);
}

void CStorm::DragSize()
{
    if (IsFullScreen())
    {
        return;
    }
    constexpr int c_iGrip = 3; // pixels from the corner of the frame
    constexpr int c_iFarthest = 300;
    const RECT rc = m_user.GetWindowRectangle();
    const POINT corner = OnScreen({rc.right - c_iGrip, rc.bottom - c_iGrip});
    const int iX = m_chance.Choose(-c_iFarthest, c_iFarthest);
    DragLeft(corner, OnScreen({corner.x + iX, corner.y + m_chance.Choose(-c_iFarthest, c_iFarthest)}));
}

void CStorm::DragTitle()
{
    if (IsFullScreen())
    {
        return;
    }
    constexpr int c_iFarthest = 60;
    const RECT rc = m_user.GetWindowRectangle();
    const POINT title = OnScreen({(rc.left + rc.right) / 2, rc.top + GetSystemMetrics(SM_CYCAPTION) / 2});
    const int iX = m_chance.Choose(-c_iFarthest, c_iFarthest);
    const POINT to{title.x + iX, title.y + m_chance.Choose(-c_iFarthest, c_iFarthest)};
    DragLeft(title, OnScreen(to));
}

void CStorm::DoubleClickTitle()
{
    if (!IsFullScreen())
    {
        const RECT rc = m_user.GetWindowRectangle();
        DoubleClickLeft(OnScreen({(rc.left + rc.right) / 2, rc.top + GetSystemMetrics(SM_CYCAPTION) / 2}));
    }
}

void CStorm::PressFullScreenKey()
{
    PressKey(VK_F11);
}

void CStorm::OpenColourDialog()
{
    if (IsFullScreen() || FindDialog() != nullptr)
    {
        return;
    }
    // Only the colour buttons have no text. All of them may be scrolled out of the panel or lie outside the screen.
    const std::vector<HWND> buttons = CollectDescendants(m_user.GetMainWindow(), [](HWND hWindow) {
        return ClassOf(hWindow) == L"CWndButton" && ReadText(hWindow).empty() &&
               WindowFromPoint(MiddleOf(hWindow)) == hWindow;
    });
    if (buttons.empty())
    {
        return;
    }
    ClickLeft(MiddleOf(m_chance.ChooseFrom(buttons)));
    const auto deadline = std::chrono::steady_clock::now() + c_dialogPatience;
    while (FindDialog() == nullptr && std::chrono::steady_clock::now() < deadline)
    {
        Sleep(c_uBreathMilliseconds);
    }
}
