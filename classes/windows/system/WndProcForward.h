#pragma once

#include <windows.h>

#include <string>

// Reports the exception that is being handled, with the place of the caller, to debug output and log.
void ReportWindowException(std::wstring* pDebugLog, const char* sFile = __builtin_FILE(),
                           unsigned uLine = __builtin_LINE(), const char* sFunction = __builtin_FUNCTION()) noexcept;

// The usual guard of a window procedure: an exception from the body is reported and the message counts as handled. No
// exception may leave a window procedure: the system's frames between sender and receiver cannot unwind.
struct CReportingGuard
{
    template<class TBody>
    LRESULT operator()(std::wstring* pDebugLog, TBody&& body) const noexcept
    {
        try
        {
            return body();
        }
        catch (...)
        {
            ReportWindowException(pDebugLog);
        }
        return 0;
    }
};

// The object of a window: stored in the window's user data, null before and after the object's life.
template<class T>
T* WndProc_GetObject(HWND hWnd) noexcept
{
    return reinterpret_cast<T*>(GetWindowLongPtrW(hWnd, GWLP_USERDATA));
}

inline void WndProc_SetObject(HWND hWnd, void* pObject) noexcept
{
    SetWindowLongPtrW(hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(pObject));
}

// A window procedure for classes that pass `this` as the creation parameter and have
// `LRESULT WndProc(HWND, UINT, WPARAM, LPARAM)` and `std::wstring* GetDebugLog() const`.
// Stores the object at WM_NCCREATE and forgets it after WM_NCDESTROY.
template<class T, class TGuard = CReportingGuard>
LRESULT CALLBACK WndProcForward(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) noexcept
{
    if (uMessage == WM_NCCREATE)
    {
        WndProc_SetObject(hWnd, reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
    }
    T* const pObject = WndProc_GetObject<T>(hWnd);
    if (uMessage == WM_NCDESTROY)
    {
        WndProc_SetObject(hWnd, nullptr);
    }
    if (pObject == nullptr)
    {
        return DefWindowProcW(hWnd, uMessage, wParam, lParam);
    }
    return TGuard{}(pObject->GetDebugLog(), [&] { return pObject->WndProc(hWnd, uMessage, wParam, lParam); });
}
