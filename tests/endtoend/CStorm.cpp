#include "tests/endtoend/CStorm.h"

#include "tests/endtoend/UserInput.h"
#include "tests/endtoend/WaitUntil.h"
#include "tests/endtoend/WindowSearch.h"

#include <chrono>
#include <stdexcept>

namespace
{
constexpr auto c_patience = std::chrono::milliseconds(20000);
constexpr DWORD c_uRestMilliseconds = 100; // between two checks for the idle state
constexpr int c_iLooksAtRest = 5;
constexpr DWORD c_uBreathMilliseconds = 30; // between two checks for a closing dialog
} // namespace

struct CStorm::CAction
{
    const char* sName;
    int iWeight; // relative frequency
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
    : m_program(program), m_user(user), m_chance(uSeed), m_rcBefore(user.GetWindowRectangle())
{
}

void CStorm::Act()
{
    int iTotal = 0;
    for (const CAction& action : c_actions)
    {
        iTotal += action.iWeight;
    }
    int iChosen = m_chance.Choose(0, iTotal - 1);
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
    constexpr int c_iGrip = 2; // pixels from the outer edge of the frame
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
    WaitForAnswer("a tour with the mouse");
}

void CStorm::Do(const CAction& action)
{
    constexpr int c_iDialogStays = 3; // in this many of four cases an open dialog is closed before the next action
    if (FindDialog() != nullptr && m_chance.Choose(0, 3) < c_iDialogStays)
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
    PressKey(VK_ESCAPE); // closes an open menu or list
    // Leaving full screen starts the simulation, and the last action may still be in progress.
    int iAtRest = 0;
    WaitUntil("the program to become idle", c_patience, [&] {
        CloseDialogs();
        WaitForAnswer("the storm");
        const bool bFullScreen = IsFullScreen();
        const bool bRunning = m_user.GetButtonText() != L"Start";
        iAtRest = bFullScreen || bRunning ? 0 : iAtRest + 1;
        if (bFullScreen)
        {
            ClickRight(m_chance.ChoosePoint(m_user.GetWorldView()));
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
        throw std::runtime_error(m_program.IsRunning() ? "the program no longer answers after: " + sAfter
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
