#include "tests/endtoend/CPanelUser.h"

#include "tests/endtoend/Keyboard.h"
#include "tests/endtoend/UserInput.h"
#include "tests/endtoend/WaitUntil.h"
#include "tests/endtoend/WindowSearch.h"

#include <chrono>
#include <stdexcept>

namespace
{
constexpr auto c_patience = std::chrono::milliseconds(20000);
constexpr int c_iFirstControlId = 200; // the number of the panel's first row
} // namespace

CPanelUser::CPanelUser(const CKinetariumUser& user)
    : m_user(user), m_hPanel(FindWindowExW(user.GetMainWindow(), nullptr, L"CDataCtrlGroup", nullptr))
{
    if (m_hPanel == nullptr)
    {
        throw std::runtime_error("there is no settings panel");
    }
}

HWND CPanelUser::GetControl(EnumPanelRow eRow) const
{
    const HWND hControl = GetDlgItem(m_hPanel, c_iFirstControlId + static_cast<int>(eRow));
    if (hControl == nullptr)
    {
        throw std::runtime_error("the panel has no such row");
    }
    return hControl;
}

RECT CPanelUser::GetControlRectangle(EnumPanelRow eRow) const
{
    RECT rc{};
    GetWindowRect(GetControl(eRow), &rc);
    return rc;
}

bool CPanelUser::IsWhollyVisible(EnumPanelRow eRow) const
{
    RECT rcPanel{};
    GetWindowRect(m_hPanel, &rcPanel);
    const RECT rcControl = GetControlRectangle(eRow);
    return rcControl.top >= rcPanel.top && rcControl.bottom <= rcPanel.bottom;
}

bool CPanelUser::IsEnabled(EnumPanelRow eRow) const
{
    return IsWindowEnabled(GetControl(eRow)) != FALSE;
}

std::wstring CPanelUser::Read(EnumPanelRow eRow) const
{
    return ReadText(GetControl(eRow));
}

int CPanelUser::GetScrollPosition() const
{
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_POS;
    GetScrollInfo(m_hPanel, SB_VERT, &info);
    return info.nPos;
}

bool CPanelUser::IsListOpen() const
{
    return SendMessageW(GetControl(EnumPanelRow::ColourMode), CB_GETDROPPEDSTATE, 0, 0) != FALSE;
}

HWND CPanelUser::GetFocus() const
{
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(GetWindowThreadProcessId(m_user.GetMainWindow(), nullptr), &info);
    return info.hwndFocus;
}

void CPanelUser::WaitForFocus(HWND hWindow) const
{
    WaitUntil("the focus to come to a " + Narrow(ClassOf(hWindow)) + " " + std::to_string(GetDlgCtrlID(hWindow)),
              c_patience, [&] { return GetFocus() == hWindow; });
}

void CPanelUser::WaitForText(EnumPanelRow eRow, const std::wstring& sText) const
{
    try
    {
        WaitUntil("a row to read \"" + Narrow(sText) + "\"", c_patience, [&] { return Read(eRow) == sText; });
    }
    catch (const std::runtime_error& error)
    {
        throw std::runtime_error(std::string(error.what()) + "; it reads \"" + Narrow(Read(eRow)) + "\"");
    }
}

void CPanelUser::Click(EnumPanelRow eRow) const
{
    BringToFront(m_user.GetMainWindow());
    const RECT rc = GetControlRectangle(eRow);
    ClickLeft({(rc.left + rc.right) / 2, (rc.top + rc.bottom) / 2});
}

void CPanelUser::Enter(EnumPanelRow eRow, const std::wstring& sTyped, const std::wstring& sExpected) const
{
    Click(eRow);
    WaitForFocus(GetControl(eRow));
    PressKeyWith(VK_CONTROL, 'A');
    TypeText(sTyped);
    WaitForText(eRow, sExpected);
}

void CPanelUser::Clear(EnumPanelRow eRow) const
{
    Click(eRow);
    WaitForFocus(GetControl(eRow));
    PressKeyWith(VK_CONTROL, 'A');
    PressKey(VK_DELETE);
    WaitForText(eRow, L"");
}

void CPanelUser::ChooseMode(const std::wstring& sMode) const
{
    Click(EnumPanelRow::ColourMode); // also opens the list
    WaitForFocus(GetControl(EnumPanelRow::ColourMode));
    WaitUntil("the list to open", c_patience, [&] { return IsListOpen(); });
    PressKey(sMode == L"Fixed" ? WORD{VK_HOME} : WORD{VK_END});
    PressKey(VK_RETURN);
    WaitUntil("the list to close", c_patience, [&] { return !IsListOpen(); });
    WaitForText(EnumPanelRow::ColourMode, sMode);
}

void CPanelUser::ClickStart() const
{
    BringToFront(m_user.GetMainWindow());
    ClickLeft(MiddleOf(m_user.GetButton()));
}

HWND CPanelUser::FindDialog() const
{
    return FindDialogOf(m_user.GetMainWindow());
}

CSeenMessage CPanelUser::WaitForMessage() const
{
    const HWND hWindow = WaitUntil("a message", c_patience, [&] {
        const HWND hFound = FindDialog();
        return hFound != nullptr && GetForegroundWindow() == hFound ? hFound : nullptr;
    });
    CSeenMessage message;
    message.hWindow = hWindow;
    message.title = ReadText(hWindow);
    for (const HWND hPart : CollectDescendants(hWindow, [](HWND) { return true; }))
    {
        const std::wstring sText = ReadText(hPart);
        if (ClassOf(hPart) == L"Button")
        {
            message.button = sText;
            ++message.buttons;
        }
        else
        {
            message.text += sText;
        }
    }
    return message;
}

void CPanelUser::WaitUntilClosed(HWND hDialog) const
{
    WaitUntil("the message to close", c_patience, [&] { return IsWindow(hDialog) == FALSE; });
}
