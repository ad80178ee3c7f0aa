#pragma once

#include <windows.h>

#include <commctrl.h>

#include <optional>

#include "classes/windows/system/WndProcForward.h"

// Changes the behaviour of one of the system's own controls: its messages go to an object first.
//
// T has `std::optional<LRESULT> HandleMessage(UINT, WPARAM, LPARAM)` (nullopt: the control answers),
// `std::wstring* GetDebugLog() const` and `void OnWindowGone()`.

constexpr UINT_PTR c_uSubclassId = 1;

template<class T>
LRESULT CALLBACK SubclassForward(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                 DWORD_PTR uObject) noexcept
{
    T* const pObject = reinterpret_cast<T*>(uObject);
    if (uMessage == WM_NCDESTROY)
    {
        RemoveWindowSubclass(hWnd, SubclassForward<T>, c_uSubclassId);
        pObject->OnWindowGone();
        return DefSubclassProc(hWnd, uMessage, wParam, lParam);
    }
    return CReportingGuard{}(pObject->GetDebugLog(), [&] {
        const std::optional<LRESULT> result = pObject->HandleMessage(uMessage, wParam, lParam);
        return result ? *result : DefSubclassProc(hWnd, uMessage, wParam, lParam);
    });
}

template<class T>
bool SubclassWindow_Object(HWND hWnd, T* pObject)
{
    return SetWindowSubclass(hWnd, SubclassForward<T>, c_uSubclassId, reinterpret_cast<DWORD_PTR>(pObject)) != FALSE;
}

// Destroys a subclassed window together with its object.
template<class T>
void DestroySubclassedWindow(HWND hWnd)
{
    if (hWnd == nullptr)
    {
        return;
    }
    RemoveWindowSubclass(hWnd, SubclassForward<T>, c_uSubclassId);
    DestroyWindow(hWnd);
}
