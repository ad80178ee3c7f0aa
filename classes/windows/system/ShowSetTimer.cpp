#include "classes/windows/system/ShowSetTimer.h"

#include "classes/core/OutputDebugMessage.h"

#include <cstdint>

UINT_PTR ShowSetTimer(HWND hWnd, UINT_PTR uId, UINT uMilliSeconds, TIMERPROC pCallback, std::wstring* pDebugLog,
                      const void* pObject, const wchar_t* sName)
{
    const UINT_PTR uResult = SetTimer(hWnd, uId, uMilliSeconds, pCallback);
    if (pDebugLog != nullptr)
    {
        OutputDebugMessage(pDebugLog, L"SetTimer %s: window 0x%I64x, object 0x%I64x, id %I64u, %u ms%s\n",
                           sName != nullptr ? sName : L"",
                           static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(hWnd)),
                           static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(pObject)),
                           static_cast<std::uint64_t>(uId), uMilliSeconds, uResult != 0 ? L"" : L" failed");
    }
    return uResult;
}
