#include "tests/windows/sequences/CRealWindow.h"

#include "tests/windows/sequences/MeasureScreen.h"
#include "tests/windows/sequences/SettingsFileFacts.h"
#include "tests/windows/sequences/WindowReading.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
constexpr LPARAM c_iKeyReleased = static_cast<LPARAM>(0xC0000001);
constexpr LPARAM c_iInButton = MAKELPARAM(5, 5);

// The message that the main window gets, if it is one single message.
struct CMainMessage
{
    EnumAction eAction;
    UINT uMessage;
    WPARAM wParam;
    LPARAM lParam;
};

constexpr CMainMessage c_MainMessages[] = {
    {EnumAction::Minimise, WM_SYSCOMMAND, SC_MINIMIZE, 0},
    {EnumAction::Restore, WM_SYSCOMMAND, SC_RESTORE, 0},
    {EnumAction::Maximise, WM_SYSCOMMAND, SC_MAXIMIZE, 0},
    {EnumAction::FullScreenKey, WM_KEYUP, VK_F11, c_iKeyReleased},
    {EnumAction::Escape, WM_KEYUP, VK_ESCAPE, c_iKeyReleased},
    {EnumAction::TitleDoubleClick, WM_NCLBUTTONDBLCLK, HTCAPTION, 0},
    {EnumAction::Reopen, WM_CLOSE, 0, 0}, // arrives in the middle of another step
};

const CMainMessage* FindMainMessage(EnumAction eAction)
{
    for (const CMainMessage& message : c_MainMessages)
    {
        if (message.eAction == eAction)
        {
            return &message;
        }
    }
    return nullptr;
}

void PlaceMaximised(HWND hWnd)
{
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    GetWindowPlacement(hWnd, &placement);
    placement.showCmd = SW_SHOWMAXIMIZED;
    SetWindowPlacement(hWnd, &placement);
}

void Resize(HWND hWnd, const std::array<int, 4>& edges)
{
    SetWindowPos(hWnd, nullptr, edges[0], edges[1], edges[2] - edges[0], edges[3] - edges[1],
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void TypeWorldSize(const CRunningApplication& application, const CStep& step)
{
    application.SetControlText(L"Width", std::to_wstring(step.values[0]).c_str());
    application.SetControlText(L"Height", std::to_wstring(step.values[1]).c_str());
}
} // namespace

CRealWindow::CRealWindow() : m_Screen(MeasureScreen()) {}

void CRealWindow::Open()
{
    m_pApplication.reset();
    m_Other.reset();
    WriteFirstSettings();
    m_pApplication = std::make_unique<CRunningApplication>(true);
}

void CRealWindow::Perform(const std::vector<CTakenStep>& group)
{
    m_Other.reset();
    const CStep& first = group.front().step;
    if (first.eAction == EnumAction::SecondWindow)
    {
        OpenAnother(first);
    }
    else if (first.eAction == EnumAction::SetWorldSize)
    {
        TypeWorldSize(*m_pApplication, first);
    }
    else if (first.eAction == EnumAction::Reopen)
    {
        PostMessageW(GetMain(), WM_CLOSE, 0, 0);
    }
    else
    {
        m_pApplication->Do([&](CKinetarium&) {
            for (std::size_t u = 1; u < group.size(); ++u)
            {
                PostMeanwhile(group[u]);
            }
            PerformFirst(group.front());
        });
    }
    if (group.back().step.eAction == EnumAction::Reopen)
    {
        Reopen();
    }
    Settle();
}

void CRealWindow::PerformFirst(const CTakenStep& taken) const
{
    if (const CMainMessage* pMessage = FindMainMessage(taken.step.eAction))
    {
        SendMessageW(GetMain(), pMessage->uMessage, pMessage->wParam, pMessage->lParam);
        return;
    }
    switch (taken.step.eAction)
    {
    case EnumAction::ShowMaximised:
        ShowWindow(GetMain(), SW_SHOWMAXIMIZED);
        break;
    case EnumAction::ShowRestored:
        ShowWindow(GetMain(), SW_RESTORE);
        break;
    case EnumAction::PlaceMaximised:
        PlaceMaximised(GetMain());
        break;
    case EnumAction::Resize:
        Resize(GetMain(), taken.step.values);
        break;
    case EnumAction::Start:
    case EnumAction::Stop:
        PressButton();
        break;
    case EnumAction::EndSession:
        SendMessageW(GetMain(), WM_QUERYENDSESSION, 0, 0);
        SendMessageW(GetMain(), WM_ENDSESSION, TRUE, 0);
        break;
    default:
        PerformInView(taken);
        break;
    }
}

void CRealWindow::PerformInView(const CTakenStep& taken) const
{
    HWND hView = nullptr;
    m_pApplication->Do([&](CKinetarium& inside) { hView = CKinetariumProbe::GetView(inside); });
    POINT point{taken.point.x, taken.point.y};
    MapWindowPoints(GetMain(), hView, &point, 1);
    const LPARAM iPoint = MAKELPARAM(point.x, point.y);
    const int iValue = taken.step.values[0];
    switch (taken.step.eAction)
    {
    case EnumAction::RightClick:
        SendMessageW(hView, WM_RBUTTONUP, 0, iPoint);
        break;
    case EnumAction::Click:
        SendMessageW(hView, WM_LBUTTONUP, 0, iPoint);
        break;
    case EnumAction::Wheel:
        SendMessageW(hView, WM_MOUSEWHEEL, MAKEWPARAM(0, iValue), 0);
        break;
    case EnumAction::ScrollVertically:
        SendMessageW(hView, WM_VSCROLL, static_cast<WPARAM>(iValue), 0);
        break;
    case EnumAction::ScrollHorizontally:
        SendMessageW(hView, WM_HSCROLL, static_cast<WPARAM>(iValue), 0);
        break;
    default:
        ADD_FAILURE() << "no way to " << GetName(taken.step.eAction);
        break;
    }
}

void CRealWindow::PressButton() const
{
    m_pApplication->Do([](CKinetarium& inside) {
        const HWND hButton = CKinetariumProbe::GetStartButton(inside);
        SendMessageW(hButton, WM_LBUTTONDOWN, MK_LBUTTON, c_iInButton);
        SendMessageW(hButton, WM_LBUTTONUP, 0, c_iInButton);
    });
}

void CRealWindow::PostMeanwhile(const CTakenStep& taken) const
{
    if (taken.step.eAction == EnumAction::Click)
    {
        PostMessageW(GetMain(), WM_LBUTTONUP, 0, MAKELPARAM(taken.point.x, taken.point.y));
    }
    else if (const CMainMessage* pMessage = FindMainMessage(taken.step.eAction))
    {
        PostMessageW(GetMain(), pMessage->uMessage, pMessage->wParam, pMessage->lParam);
    }
}

void CRealWindow::OpenAnother(const CStep& step)
{
    CRunningApplication other(true);
    m_Other.emplace();
    m_Other->window = GetWindowPlace(other.GetMain());
    m_Other->panelWorld = GetPanelWorld(other);
    TypeWorldSize(other, step);
}

void CRealWindow::Reopen()
{
    EXPECT_TRUE(m_pApplication->WaitForEnd()) << "the window did not close";
    m_pApplication = std::make_unique<CRunningApplication>(true);
}

// Waits until everything that the step has begun is done, and a worker stands at the gate if there is one.
void CRealWindow::Settle() const
{
    EXPECT_TRUE(m_pApplication->WaitForRest());
    bool bWorker = false;
    m_pApplication->Do([&](CKinetarium& inside) { bWorker = CKinetariumProbe::HasWorker(inside); });
    EXPECT_TRUE(!bWorker || m_Gate.Wait());
}

CWindowFacts CRealWindow::Observe()
{
    CWindowFacts facts;
    m_pApplication->Do([&](CKinetarium& inside) { facts = ReadWindow(GetMain(), inside); });
    facts.file = ReadSettingsFile();
    facts.other = m_Other;
    return facts;
}
