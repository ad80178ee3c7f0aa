#include "classes/windows/system/ShowCreateWindow.h"

#include "classes/core/OutputDebugMessage.h"

#include <cstdint>

void ShowCreateWindow(std::wstring* pDebugLog, const void* pObject, const wchar_t* sClass, const wchar_t* sMember,
                      HWND hWnd, const wchar_t* sExtra)
{
    if (pDebugLog == nullptr)
    {
        return;
    }
    OutputDebugMessage(pDebugLog, L"CreateWindow %s.%s: window 0x%I64x, object 0x%I64x%s%s\n",
                       sClass != nullptr ? sClass : L"", sMember != nullptr ? sMember : L"",
                       static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(hWnd)),
                       static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(pObject)),
                       sExtra != nullptr ? L" " : L"", sExtra != nullptr ? sExtra : L"");
}
