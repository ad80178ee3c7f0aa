#include "classes/windows/system/WindowText.h"

#include <string>
#include <utility>

CWString ReadWindowText(HWND hWnd)
{
    std::wstring sText(static_cast<std::size_t>(GetWindowTextLengthW(hWnd)) + 1, L'\0');
    const int iLength = GetWindowTextW(hWnd, sText.data(), static_cast<int>(sText.size()));
    sText.resize(static_cast<std::size_t>(iLength));
    return CWString(std::move(sText));
}
