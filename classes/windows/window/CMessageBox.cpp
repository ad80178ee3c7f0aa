#include "classes/windows/window/CMessageBox.h"

#include "classes/windows/system/MessagePump.h"
#include "classes/windows/window/CWndCommon.h"
#include "classes/windows/window/MessageBoxDialog.h"

namespace
{
// Disables the owner while the message is shown, and restores the focus afterwards.
class COwnerScope
{
public:
    explicit COwnerScope(HWND hOwner)
        : m_hOwner(hOwner), m_hFocus(GetFocus()), m_bWasEnabled(hOwner != nullptr && IsWindowEnabled(hOwner))
    {
        if (m_bWasEnabled)
        {
            EnableWindow(m_hOwner, FALSE);
        }
    }
    COwnerScope(const COwnerScope&) = delete;
    COwnerScope& operator=(const COwnerScope&) = delete;
    ~COwnerScope() { GiveBack(); }

    // Call it while the message's window still exists: when that window goes, the system activates its owner. If the
    // owner were still disabled, another program would come to the front.
    void EnableOwner()
    {
        if (m_bWasEnabled && IsWindow(m_hOwner))
        {
            EnableWindow(m_hOwner, TRUE);
        }
        m_bWasEnabled = false;
    }

private:
    void GiveBack()
    {
        EnableOwner();
        if (m_hFocus != nullptr && IsWindow(m_hFocus) && IsWindowEnabled(m_hFocus) && GetActiveWindow() == m_hOwner)
        {
            SetFocus(m_hFocus);
        }
    }

    HWND m_hOwner;
    HWND m_hFocus;
    bool m_bWasEnabled;
};

constexpr LPARAM c_iRepeated = LPARAM{1} << 30; // the bit of a key message that says the key was down before
constexpr DWORD c_uReleasePoll = 10;            // ms between two looks at a key that may be released elsewhere

// Enter on a button may open the message. If the user holds the key a little longer, it must not close the message
// unread.
bool IsRepeatedAnswer(const MSG& msg)
{
    return msg.message == WM_KEYDOWN && (msg.lParam & c_iRepeated) != 0 &&
           (msg.wParam == VK_RETURN || msg.wParam == VK_ESCAPE);
}

MessageFilter MakeFilter(const CMessageBoxDialog& dialog)
{
    return [&dialog](const MSG& msg) {
        if (IsRepeatedAnswer(msg))
        {
            return true;
        }
        MSG copy = msg;
        return IsWindow(dialog.GetWindowHandle()) && IsDialogMessageW(dialog.GetWindowHandle(), &copy) != FALSE;
    };
}

void RunUntilClosed(const CMessageBoxDialog& dialog)
{
    const MessageFilter filter = MakeFilter(dialog);
    while (!dialog.IsClosed() && MessagePump_RunPending(nullptr, filter))
    {
        if (!dialog.IsClosed())
        {
            WaitMessage();
        }
    }
}

// The main window may react to the release of Escape. The Escape that closes a message is released later: the message
// stays until then and takes the release. While another program is in the foreground, this loop does not see the
// release and does not wait.
void RunUntilEscapeIsUp(const CMessageBoxDialog& dialog)
{
    const MessageFilter filter = MakeFilter(dialog);
    const HWND hDialog = dialog.GetWindowHandle();
    // Handles waiting messages first: the key may have been released already.
    while (IsWindow(hDialog) && MessagePump_RunPending(nullptr, filter) && GetKeyState(VK_ESCAPE) < 0 &&
           GetForegroundWindow() == hDialog)
    {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, c_uReleasePoll, QS_ALLINPUT);
    }
    if (IsWindow(hDialog))
    {
        MessagePump_RunPending(nullptr, filter);
    }
}
} // namespace

int CMessageBox::ShowDialog(const CWString& sText, const CWString& sTitle, int, const CWString& sLabel)
{
    const HWND hOwnWindow = m_pOwner != nullptr ? m_pOwner->GetWindowHandle() : nullptr;
    const HWND hOwner = hOwnWindow != nullptr ? GetAncestor(hOwnWindow, GA_ROOT) : nullptr;
    const HFONT hFont = m_pOwner != nullptr ? m_pOwner->GetFont() : nullptr;
    const HINSTANCE hInstance = m_pOwner != nullptr ? m_pOwner->GetInstance() : GetModuleHandleW(nullptr);
    std::wstring* const pDebugLog = m_pOwner != nullptr ? m_pOwner->GetDebugLog() : nullptr;

    COwnerScope owner(hOwner);
    CMessageBoxDialog dialog(sText, sTitle, sLabel, hFont, pDebugLog);
    if (!dialog.Create(hInstance, hOwner))
    {
        return 0;
    }
    RunUntilClosed(dialog);
    RunUntilEscapeIsUp(dialog);
    owner.EnableOwner();
    dialog.Destroy();
    return dialog.WasAnswered() ? 1 : 0;
}
