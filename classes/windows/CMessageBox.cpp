#include "classes/windows/CMessageBox.h"

#include "classes/windows/CWndCommon.h"
#include "classes/windows/MessageBoxDialog.h"
#include "classes/windows/MessagePump.h"

namespace
{
// Disables the owner while the message is shown, and gives the focus back afterwards.
class COwnerScope
{
public:
    explicit COwnerScope(HWND hOwner)
        : m_hOwner(hOwner), m_hFocus(GetFocus()), m_bWasEnabled(hOwner != nullptr && IsWindowEnabled(hOwner))
    {
        if (m_bWasEnabled)
            EnableWindow(m_hOwner, FALSE);
    }
    COwnerScope(const COwnerScope&) = delete;
    COwnerScope& operator=(const COwnerScope&) = delete;
    ~COwnerScope() { GiveBack(); }

    // To be called while the message's window still exists: when it goes, the system activates its owner, which must be
    // enabled by then; otherwise the next program would come to the front.
    void EnableOwner()
    {
        if (m_bWasEnabled && IsWindow(m_hOwner))
            EnableWindow(m_hOwner, TRUE);
        m_bWasEnabled = false;
    }

private:
    void GiveBack()
    {
        EnableOwner();
        if (m_hFocus != nullptr && IsWindow(m_hFocus) && IsWindowEnabled(m_hFocus) && GetActiveWindow() == m_hOwner)
            SetFocus(m_hFocus);
    }

    HWND m_hOwner;
    HWND m_hFocus;
    bool m_bWasEnabled;
};

void RunUntilClosed(const CMessageBoxDialog& dialog)
{
    const MessageFilter filter = [&dialog](const MSG& msg) {
        MSG copy = msg;
        return IsWindow(dialog.GetWindowHandle()) && IsDialogMessageW(dialog.GetWindowHandle(), &copy) != FALSE;
    };
    while (!dialog.IsClosed() && MessagePump_RunPending(nullptr, filter))
        if (!dialog.IsClosed())
            WaitMessage();
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
        return 0;
    RunUntilClosed(dialog);
    owner.EnableOwner();
    dialog.Destroy();
    return dialog.WasAnswered() ? 1 : 0;
}
