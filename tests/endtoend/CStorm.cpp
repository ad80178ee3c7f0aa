#include "tests/endtoend/CStorm.h"

#include "tests/endtoend/MouseGestures.h"
#include "tests/endtoend/UserInput.h"
#include "tests/endtoend/WaitUntil.h"
#include "tests/endtoend/WindowSearch.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <stdexcept>
#include <vector>

namespace
{
constexpr auto c_patience = std::chrono::milliseconds(20000);
constexpr auto c_dialogPatience = std::chrono::milliseconds(1000);
constexpr DWORD c_uRestMilliseconds = 100; // between two looks at whether all is at rest
constexpr int c_iLooksAtRest = 5;
constexpr DWORD c_uBreathMilliseconds = 30; // between two looks at a dialog that may open or close
} // namespace

struct CStorm::CAction
{
    const char* sName;
    int iWeight; // how often it comes, among the others
    void (CStorm::*pDo)();
};

const CStorm::CAction CStorm::c_actions[] = {
    {"click in the world", 8, &CStorm::ClickWorld},
    {"right click in the world", 2, &CStorm::RightClickWorld},
    {"click anywhere", 6, &CStorm::ClickAnywhere},
    {"click on Start/Stop", 4, &CStorm::ClickButton},
    {"key", 8, &CStorm::PressAnyKey},
    {"wheel", 4, &CStorm::Roll},
    {"size", 5, &CStorm::DragSize},
    {"move", 2, &CStorm::DragTitle},
    {"double click on the title", 1, &CStorm::DoubleClickTitle},
    {"F11", 3, &CStorm::PressFullScreenKey},
    {"colour dialog", 3, &CStorm::OpenColourDialog},
};

CStorm::CStorm(const CDrivenProgram& program, const CKinetariumUser& user, std::uint32_t uSeed)
    : m_program(program), m_user(user), m_random(uSeed), m_rcBefore(user.GetWindowRectangle())
{
}

void CStorm::Act()
{
    int iTotal = 0;
    for (const CAction& action : c_actions)
    {
        iTotal += action.iWeight;
    }
    int iChosen = Choose(0, iTotal - 1);
    for (const CAction& action : c_actions)
    {
        iChosen -= action.iWeight;
        if (iChosen < 0)
        {
            Do(action);
            return;
        }
    }
}

void CStorm::ActEachOnce()
{
    for (const CAction& action : c_actions)
    {
        Do(action);
    }
}

void CStorm::VisitEverything()
{
    constexpr int c_iGrip = 2; // pixels from the outside of the frame
    const RECT rc = m_user.GetWindowRectangle();
    const POINT middle = MiddleOf(rc);
    for (const LONG iX : {rc.left + c_iGrip, middle.x, rc.right - 1 - c_iGrip})
    {
        for (const LONG iY : {rc.top + c_iGrip, middle.y, rc.bottom - 1 - c_iGrip})
        {
            MoveMouse(OnScreen({iX, iY}));
        }
    }
    for (const HWND hWindow : CollectDescendants(m_user.GetMainWindow(), [](HWND hAny) {
             return IsWindowVisible(hAny) != FALSE && WindowFromPoint(MiddleOf(hAny)) == hAny;
         }))
    {
        MoveMouse(MiddleOf(hWindow));
    }
    WaitForAnswer("a visit with the mouse");
}

void CStorm::Do(const CAction& action)
{
    constexpr int c_iDialogStays = 3; // in so many of four cases an open dialog is closed before the next action
    if (FindDialog() != nullptr && Choose(0, 3) < c_iDialogStays)
    {
        CloseDialogs();
    }
    ++m_tally[action.sName];
    m_iWhileRunning += m_user.GetButtonText() == L"Stop" ? 1 : 0;
    try
    {
        (this->*action.pDo)();
    }
    catch (const std::runtime_error& error)
    {
        throw std::runtime_error(std::string(action.sName) + ": " + error.what());
    }
    WaitForAnswer(action.sName);
}

void CStorm::ClickWorld()
{
    ClickLeft(ChoosePoint(m_user.GetWorldView()));
}

void CStorm::RightClickWorld()
{
    ClickRight(ChoosePoint(m_user.GetWorldView()));
}

void CStorm::ClickAnywhere()
{
    ClickLeft(ChoosePoint(m_user.GetMainWindow()));
}

void CStorm::ClickButton()
{
    // In full screen it is hidden, and in a small window the view lies over it or the screen's edge cuts it off.
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
    PressKey(c_uKeys[static_cast<std::size_t>(Choose(0, static_cast<int>(c_uKeys.size()) - 1))]);
}

void CStorm::Roll()
{
    constexpr int c_iMostNotches = 3;
    RollWheel(ChoosePoint(m_user.GetMainWindow()), Choose(-c_iMostNotches, c_iMostNotches) * WHEEL_DELTA);
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
    const int iX = Choose(-c_iFarthest, c_iFarthest);
    DragLeft(corner, OnScreen({corner.x + iX, corner.y + Choose(-c_iFarthest, c_iFarthest)}));
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
    const int iX = Choose(-c_iFarthest, c_iFarthest);
    const POINT to{title.x + iX, title.y + Choose(-c_iFarthest, c_iFarthest)};
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
    // The colour buttons are the ones without a text. They may all be scrolled out of the panel, or lie beyond the
    // screen.
    const std::vector<HWND> buttons = CollectDescendants(m_user.GetMainWindow(), [](HWND hWindow) {
        return ClassOf(hWindow) == L"CWndButton" && ReadText(hWindow).empty() &&
               WindowFromPoint(MiddleOf(hWindow)) == hWindow;
    });
    if (buttons.empty())
    {
        return;
    }
    ClickLeft(MiddleOf(buttons[static_cast<std::size_t>(Choose(0, static_cast<int>(buttons.size()) - 1))]));
    const auto deadline = std::chrono::steady_clock::now() + c_dialogPatience;
    while (FindDialog() == nullptr && std::chrono::steady_clock::now() < deadline)
    {
        Sleep(c_uBreathMilliseconds);
    }
}

void CStorm::CloseDialogs()
{
    WaitUntil("the dialogs to close", c_patience, [&] {
        const HWND hDialog = FindDialog();
        if (hDialog == nullptr)
        {
            return true;
        }
        SetForegroundWindow(hDialog);
        PressKey(VK_ESCAPE);
        Sleep(c_uBreathMilliseconds);
        return FindDialog() == nullptr;
    });
}

void CStorm::Settle()
{
    CloseDialogs();
    SetForegroundWindow(m_user.GetMainWindow());
    PressKey(VK_ESCAPE); // for a menu or a list that is open
    // Leaving full screen starts the simulation, and what was done last may still be on its way.
    int iAtRest = 0;
    WaitUntil("the program to come to rest", c_patience, [&] {
        CloseDialogs();
        WaitForAnswer("the storm");
        const bool bFullScreen = IsFullScreen();
        const bool bRunning = m_user.GetButtonText() != L"Start";
        iAtRest = bFullScreen || bRunning ? 0 : iAtRest + 1;
        if (bFullScreen)
        {
            ClickRight(ChoosePoint(m_user.GetWorldView()));
        }
        else
        {
            SetWindowPos(m_user.GetMainWindow(), nullptr, m_rcBefore.left, m_rcBefore.top,
                         m_rcBefore.right - m_rcBefore.left, m_rcBefore.bottom - m_rcBefore.top, SWP_NOZORDER);
            if (bRunning)
            {
                ClickButton();
            }
        }
        Sleep(c_uRestMilliseconds);
        return iAtRest == c_iLooksAtRest;
    });
}

void CStorm::WaitForAnswer(const std::string& sAfter) const
{
    DWORD_PTR uIgnored = 0;
    if (SendMessageTimeoutW(m_user.GetMainWindow(), WM_NULL, 0, 0, SMTO_BLOCK, static_cast<UINT>(c_patience.count()),
                            &uIgnored) == 0)
    {
        throw std::runtime_error(m_program.IsRunning() ? "the program does not answer any more after: " + sAfter
                                                       : "the program has ended after: " + sAfter);
    }
}

HWND CStorm::FindDialog() const
{
    return FindDialogOf(m_user.GetMainWindow());
}

bool CStorm::IsFullScreen() const
{
    return (GetWindowLongW(m_user.GetMainWindow(), GWL_STYLE) & WS_THICKFRAME) == 0;
}

int CStorm::Choose(int iLow, int iHigh)
{
    return iLow + static_cast<int>(m_random() % static_cast<unsigned>(iHigh - iLow + 1));
}

// A point of the window's client area that is on the screen.
POINT CStorm::ChoosePoint(HWND hWindow)
{
    RECT rc{};
    GetClientRect(hWindow, &rc);
    MapWindowPoints(hWindow, nullptr, reinterpret_cast<POINT*>(&rc), 2);
    const auto choose = [this](LONG iLow, LONG iHigh, int iMetric) {
        const LONG iLast = GetSystemMetrics(iMetric) - 1;
        const LONG iFrom = std::clamp<LONG>(iLow, 0, iLast);
        return static_cast<LONG>(Choose(iFrom, std::clamp<LONG>(iHigh - 1, iFrom, iLast)));
    };
    const LONG iX = choose(rc.left, rc.right, SM_CXSCREEN);
    return {iX, choose(rc.top, rc.bottom, SM_CYSCREEN)};
}
