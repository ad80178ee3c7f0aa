#pragma once

#include <windows.h>

#include <optional>

// A window procedure as data: one row per message, one small handler per row.

// A handler answers a message with its result, or with nothing when the system's default is wanted after all.
template<class T>
struct CMessageEntry
{
    UINT uMessage;
    std::optional<LRESULT> (T::*pHandler)(WPARAM, LPARAM);
};

// Finds the message's row and calls its handler; without a row, or when the handler passes, DefWindowProcW answers.
// The first row of a message counts. Tables have a dozen rows: walking them costs less than hashing.
template<class T, class TEntries>
LRESULT DispatchMessage_Table(T& object, const TEntries& entries, HWND hWnd, UINT uMessage, WPARAM wParam,
                              LPARAM lParam)
{
    for (const CMessageEntry<T>& entry : entries)
    {
        if (entry.uMessage != uMessage)
            continue;
        if (const std::optional<LRESULT> result = (object.*entry.pHandler)(wParam, lParam))
            return *result;
        break;
    }
    return DefWindowProcW(hWnd, uMessage, wParam, lParam);
}
