// The clock in the status bar: a part of CWndCommon with a file of its own.
#include "classes/windows/window/CWndCommon.h"

#include <windows.h>

#include <commctrl.h>

namespace
{
constexpr int c_iDatePart = 1;
constexpr int c_iTimePart = 2;
// Room for the longest date in the system's long form, with its final zero.
constexpr int c_iTextRoom = 128;

CWString GetDateText(bool bLongDate)
{
    wchar_t sText[c_iTextRoom]{};
    const DWORD uFlags = bLongDate ? DATE_LONGDATE : DATE_SHORTDATE;
    GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, uFlags, nullptr, nullptr, sText, c_iTextRoom, nullptr);
    return sText;
}

CWString GetTimeText(bool bSeconds)
{
    wchar_t sText[c_iTextRoom]{};
    const DWORD uFlags = bSeconds ? 0 : TIME_NOSECONDS;
    GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, uFlags, nullptr, nullptr, sText, c_iTextRoom);
    return sText;
}
} // namespace

void CWndCommon::UpdateStatusBarClock(bool bLongDate, bool bSeconds)
{
    if (!IsWindow(m_hStatusBar))
    {
        return;
    }
    SetStatusBarText(c_iDatePart, GetDateText(bLongDate), m_sClockDate);
    SetStatusBarText(c_iTimePart, GetTimeText(bSeconds), m_sClockTime);
}

// If the bar refuses a text (it has no such part yet), the next call tries again.
void CWndCommon::SetStatusBarText(int iPart, const CWString& sText, CWString& sShown)
{
    if (sText == sShown)
    {
        return;
    }
    if (SendMessageW(m_hStatusBar, SB_SETTEXTW, static_cast<WPARAM>(iPart), reinterpret_cast<LPARAM>(sText.c_str())))
    {
        sShown = sText;
    }
}
