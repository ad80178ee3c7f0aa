#include "tests/endtoend/CKinetariumUser.h"

#include "tests/endtoend/UserInput.h"
#include "tests/endtoend/WaitUntil.h"
#include "tests/endtoend/WindowSearch.h"

#include <array>
#include <chrono>
#include <functional>
#include <optional>
#include <stdexcept>

namespace
{
// The first start on a machine also sets up fonts and Direct2D's software drawing.
constexpr auto c_startPatience = std::chrono::milliseconds(60000);
constexpr auto c_actionPatience = std::chrono::milliseconds(20000);
constexpr auto c_linePatience = std::chrono::milliseconds(30000);

// The possible reasons why a click missed its target.
std::string DescribeInput()
{
    POINT pt{};
    GetCursorPos(&pt);
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(0, &info);
    return "; the mouse is over a " + Narrow(ClassOf(WindowFromPoint(pt))) + ", the window in front is a " +
           Narrow(ClassOf(GetForegroundWindow())) + ", the mouse belongs to a " + Narrow(ClassOf(info.hwndCapture));
}
} // namespace

CKinetariumUser::CKinetariumUser(const CDrivenProgram& program) : m_program(program)
{
    m_hMain = WaitUntil("the main window", c_startPatience, [&] {
        if (!m_program.IsRunning())
        {
            throw std::runtime_error("the program ended before it showed its window");
        }
        return FindTopWindow([&](HWND hWindow) {
            DWORD uProcessId = 0;
            GetWindowThreadProcessId(hWindow, &uProcessId);
            return uProcessId == m_program.GetProcessId() && ClassOf(hWindow) == L"CKinetarium" &&
                   IsWindowVisible(hWindow) != FALSE;
        });
    });
    m_hStatusBar = WaitUntil("the status bar", c_actionPatience,
                             [&] { return FindDescendantByClass(m_hMain, L"msctls_statusbar32"); });
    m_hWorldView =
        WaitUntil("the world view", c_actionPatience, [&] { return FindDescendantByClass(m_hMain, L"CWndWorldView"); });
    m_hButton = WaitUntil("the Start button", c_actionPatience, [&] {
        return FindDescendant(m_hMain, [](HWND hWindow) { return ReadText(hWindow) == L"Start"; });
    });
}

std::wstring CKinetariumUser::GetButtonText() const
{
    return ReadText(m_hButton);
}

std::wstring CKinetariumUser::GetStatusText() const
{
    return ReadText(m_hStatusBar); // the text of its first part
}

RECT CKinetariumUser::GetWindowRectangle() const
{
    RECT rc{};
    if (GetWindowRect(m_hMain, &rc) == FALSE)
    {
        throw std::runtime_error("the main window is gone");
    }
    return rc;
}

RECT CKinetariumUser::GetWorldRectangle() const
{
    RECT rc{};
    if (GetClientRect(m_hWorldView, &rc) == FALSE)
    {
        throw std::runtime_error("the world view is gone");
    }
    MapWindowPoints(m_hWorldView, nullptr, reinterpret_cast<POINT*>(&rc), 2);
    return rc;
}

void CKinetariumUser::PressStart() const
{
    PressButton(L"Start", L"Stop");
}

void CKinetariumUser::PressStop() const
{
    PressButton(L"Stop", L"Start");
}

void CKinetariumUser::PressButton(const wchar_t* sBefore, const wchar_t* sAfter) const
{
    const std::string sName = Narrow(sBefore);
    WaitUntil("the button to read " + sName, c_actionPatience,
              [&] { return GetButtonText() == sBefore && IsWindowEnabled(m_hButton) != FALSE; });
    BringToFront(m_hMain);
    RECT rc{};
    GetWindowRect(m_hButton, &rc);
    ClickLeft(MiddleOf(rc));
    try
    {
        WaitUntil("the click on " + sName + " to act", c_actionPatience,
                  [&] { return GetButtonText() == sAfter && IsWindowEnabled(m_hButton) != FALSE; });
    }
    catch (const std::runtime_error& error)
    {
        throw std::runtime_error(error.what() + DescribeInput());
    }
}

void CKinetariumUser::ClickWorld(POINT point) const
{
    const RECT rc = GetWorldRectangle();
    BringToFront(m_hMain);
    ClickLeft({rc.left + point.x, rc.top + point.y});
}

void CKinetariumUser::ClickWorldMiddle() const
{
    const RECT rc = GetWorldRectangle();
    ClickWorld({(rc.right - rc.left) / 2, (rc.bottom - rc.top) / 2});
}

void CKinetariumUser::RestMouse() const
{
    const RECT rc = GetWindowRectangle();
    MoveMouse({MiddleOf(rc).x, rc.top + GetSystemMetrics(SM_CYCAPTION) / 2});
}

void CKinetariumUser::PressKeyInWindow(WORD uKey) const
{
    BringToFront(m_hMain);
    PressKey(uKey);
}

CStatistics CKinetariumUser::WaitForStatistics(std::uint64_t uKnown) const
{
    std::wstring sLast;
    try
    {
        return *WaitUntil("a statistics line", c_linePatience, [&]() -> std::optional<CStatistics> {
            sLast = GetStatusText();
            const auto statistics = ParseStatisticsLine(sLast);
            return statistics && statistics->iterations != uKnown ? statistics : std::nullopt;
        });
    }
    catch (const std::runtime_error& error)
    {
        throw std::runtime_error(std::string(error.what()) + "; the status bar reads \"" + Narrow(sLast) + "\"");
    }
}

void CKinetariumUser::Close() const
{
    PostMessageW(m_hMain, WM_SYSCOMMAND, SC_CLOSE, 0);
}
