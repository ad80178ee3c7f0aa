#include "tests/classes/windows/crash/CloseSystemMessage.h"

#include <stdexcept>

namespace
{
constexpr DWORD c_dwPatience = 100000; // ms, far longer than the report's own time limits
constexpr DWORD c_dwLook = 20;         // ms

struct CSearch
{
    DWORD processId;
    HWND found;
};

BOOL CALLBACK MatchDialog(HWND hWnd, LPARAM lParam)
{
    auto* pSearch = reinterpret_cast<CSearch*>(lParam);
    DWORD dwProcessId = 0;
    GetWindowThreadProcessId(hWnd, &dwProcessId);
    wchar_t sClass[16] = L"";
    GetClassNameW(hWnd, sClass, static_cast<int>(std::size(sClass)));
    if (dwProcessId != pSearch->processId || !IsWindowVisible(hWnd) || std::wstring(sClass) != L"#32770")
    {
        return TRUE;
    }
    pSearch->found = hWnd;
    return FALSE;
}

// The longest text in the dialog is the message.
BOOL CALLBACK TakeLongest(HWND hWnd, LPARAM lParam)
{
    auto* pText = reinterpret_cast<std::wstring*>(lParam);
    std::wstring sText(static_cast<std::size_t>(SendMessageW(hWnd, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
    sText.resize(
        static_cast<std::size_t>(SendMessageW(hWnd, WM_GETTEXT, sText.size(), reinterpret_cast<LPARAM>(sText.data()))));
    if (sText.size() > pText->size())
    {
        *pText = sText;
    }
    return TRUE;
}
} // namespace

std::wstring CloseSystemMessage(HANDLE hProcess)
{
    for (DWORD dwWaited = 0; dwWaited < c_dwPatience; dwWaited += c_dwLook)
    {
        CSearch search{GetProcessId(hProcess), nullptr};
        EnumWindows(MatchDialog, reinterpret_cast<LPARAM>(&search));
        if (search.found != nullptr)
        {
            std::wstring sText;
            EnumChildWindows(search.found, TakeLongest, reinterpret_cast<LPARAM>(&sText));
            PostMessageW(search.found, WM_COMMAND, IDOK, 0);
            return sText;
        }
        if (WaitForSingleObject(hProcess, c_dwLook) == WAIT_OBJECT_0)
        {
            return {};
        }
    }
    throw std::runtime_error("neither a message nor the end of the program");
}
