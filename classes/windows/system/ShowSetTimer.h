#pragma once

#include <windows.h>

#include <string>

// SetTimer, with a line in the debug log (null: none) that names the timer and the object it belongs to.
// Returns what SetTimer returns: 0 on failure.
UINT_PTR ShowSetTimer(HWND hWnd, UINT_PTR uId, UINT uMilliSeconds, TIMERPROC pCallback, std::wstring* pDebugLog,
                      const void* pObject, const wchar_t* sName);
