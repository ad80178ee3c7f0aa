#include "tests/windows/MessageBoxProbe.h"

#include "tests/windows/CRunningApplication.h"

namespace
{
struct CSearch
{
    HWND hOwner;
    HWND hFound;
};

std::wstring GetClass(HWND hWnd)
{
    wchar_t sClass[64] = L"";
    GetClassNameW(hWnd, sClass, static_cast<int>(std::size(sClass)));
    return sClass;
}

BOOL CALLBACK MatchPopup(HWND hWnd, LPARAM lParam)
{
    auto* pSearch = reinterpret_cast<CSearch*>(lParam);
    // Tooltips and the drop-down parts of lists are owned popups too, but have no title bar.
    const bool bDialog = (GetWindowLongPtrW(hWnd, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
    if (!bDialog || !IsWindowVisible(hWnd) || GetWindow(hWnd, GW_OWNER) != pSearch->hOwner)
    {
        return TRUE;
    }
    pSearch->hFound = hWnd;
    return FALSE;
}

// A message box has one button; its longest other text is the message.
BOOL CALLBACK ReadPart(HWND hWnd, LPARAM lParam)
{
    auto* pMessage = reinterpret_cast<CShownMessage*>(lParam);
    const std::wstring sText = GetText(hWnd);
    const bool bButton = GetClass(hWnd).find(L"utton") != std::wstring::npos;
    if (bButton)
    {
        pMessage->hButton = hWnd;
        pMessage->sButton = sText;
    }
    else if (sText.size() > pMessage->sText.size())
    {
        pMessage->sText = sText;
    }
    return TRUE;
}
} // namespace

HWND FindPopup(HWND hOwner)
{
    CSearch search{hOwner, nullptr};
    EnumThreadWindows(GetWindowThreadProcessId(hOwner, nullptr), MatchPopup, reinterpret_cast<LPARAM>(&search));
    return search.hFound;
}

CShownMessage WaitForMessageBox(HWND hOwner)
{
    CShownMessage message;
    CRunningApplication::Poll([&] {
        message = {};
        message.hWnd = FindPopup(hOwner);
        if (message.hWnd == nullptr)
        {
            return false;
        }
        message.sTitle = GetText(message.hWnd);
        EnumChildWindows(message.hWnd, ReadPart, reinterpret_cast<LPARAM>(&message));
        return message.hButton != nullptr && IsWindowVisible(message.hButton);
    });
    return message;
}

bool CloseMessageBox(const CShownMessage& message)
{
    PostMessageW(message.hButton, BM_CLICK, 0, 0);
    return CRunningApplication::Poll([&] { return !IsWindow(message.hWnd); });
}
