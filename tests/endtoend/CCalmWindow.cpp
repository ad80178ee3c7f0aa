#include "tests/endtoend/CCalmWindow.h"

#include "tests/endtoend/Keyboard.h"
#include "tests/endtoend/UserInput.h"
#include "tests/endtoend/WaitUntil.h"
#include "tests/endtoend/WindowSearch.h"

#include <chrono>
#include <optional>

namespace
{
constexpr auto c_patience = std::chrono::milliseconds(60000);
constexpr DWORD c_uPaintMilliseconds = 300; // gives the program time to draw its changes

bool HasDarkText(const CScreenPicture& picture, const RECT& rcText)
{
    constexpr int c_iDark = 100;
    constexpr int c_iEnough = 100; // pixels
    int iDark = 0;
    for (int iY = rcText.top; iY < rcText.bottom; ++iY)
    {
        for (int iX = rcText.left; iX < rcText.right; ++iX)
        {
            iDark += GetGValue(picture.GetPixel(iX, iY)) < c_iDark ? 1 : 0;
        }
    }
    return iDark >= c_iEnough;
}
} // namespace

CCalmWindow::CCalmWindow(const CKinetariumUser& user, const CPanelUser& panel) : m_user(user), m_panel(panel)
{
    BringToFront(m_user.GetMainWindow());
    MoveMouse(MiddleOf(m_user.GetStatusBar()));
    Sleep(c_uPaintMilliseconds);
    m_aColours = GetColours();
}

std::array<COLORREF, 2> CCalmWindow::GetColours() const
{
    RECT rcButton{};
    GetWindowRect(m_user.GetButton(), &rcButton);
    const CScreenPicture button(rcButton);
    const CScreenPicture list(m_panel.GetControlRectangle(EnumPanelRow::ColourMode));
    return {button.GetPixel(button.GetWidth() / 4, button.GetHeight() / 2), list.GetPixel(list.GetWidth() * 3 / 5, 0)};
}

void CCalmWindow::RestMouse() const
{
    constexpr int c_iPolls = 4;
    const HWND hRest = m_user.GetStatusBar();
    MoveMouse(MiddleOf(hRest));
    int iPolls = 0;
    WaitUntil("the program to notice that the mouse has left", c_patience, [&] {
        Sleep(c_uPaintMilliseconds);
        const std::wstring sText = m_user.GetStatusText();
        if (GetColours() == m_aColours && (sText.empty() || ParseStatisticsLine(sText)))
        {
            return true;
        }
        // Wine never reports that the mouse has left a window if it left before the program saw it come. Then it comes
        // and goes once more, slowly.
        if (++iPolls % c_iPolls == 0)
        {
            for (const HWND hWindow : {m_user.GetButton(), m_panel.GetControl(EnumPanelRow::ColourMode), hRest})
            {
                MoveMouse(MiddleOf(hWindow));
                Sleep(c_uPaintMilliseconds);
            }
        }
        return false;
    });
}

void CCalmWindow::FocusButton() const
{
    while (m_panel.GetFocus() != m_user.GetButton())
    {
        const HWND hBefore = m_panel.GetFocus();
        PressKey(VK_TAB);
        WaitUntil("the next control to get the focus", c_patience, [&] { return m_panel.GetFocus() != hBefore; });
    }
}

CScreenPicture CCalmWindow::TakeWithStatistics() const
{
    constexpr int c_iTextWidth = 300; // pixels; a statistics line is longer
    constexpr int c_iFrame = 4;       // pixels
    m_user.WaitForStatistics(m_user.WaitForStatistics(0).iterations);
    const RECT rcWindow = m_user.GetWindowRectangle();
    RECT rcText{};
    GetWindowRect(m_user.GetStatusBar(), &rcText);
    OffsetRect(&rcText, -rcWindow.left, -rcWindow.top);
    rcText.right = rcText.left + c_iTextWidth;
    InflateRect(&rcText, -c_iFrame, -c_iFrame);
    const auto picture = WaitUntil("a statistics line on the screen", c_patience, [&] {
        std::optional<CScreenPicture> taken(rcWindow);
        return HasDarkText(*taken, rcText) ? taken : std::nullopt;
    });
    return *picture;
}
