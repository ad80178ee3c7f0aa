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

// The answer of the message's row: nothing without a row, or when its handler passes. The first row of a message
// counts. Tables have a dozen rows: walking them costs less than hashing.
template<class T, class TEntries>
std::optional<LRESULT> HandleMessage_Table(T& object, const TEntries& entries, UINT uMessage, WPARAM wParam,
                                           LPARAM lParam)
{
    for (const CMessageEntry<T>& entry : entries)
    {
        if (entry.uMessage == uMessage)
        {
            return (object.*entry.pHandler)(wParam, lParam);
        }
    }
    return std::nullopt;
}

// The same for a window procedure: what the table does not answer, DefWindowProcW does.
template<class T, class TEntries>
LRESULT DispatchMessage_Table(T& object, const TEntries& entries, HWND hWnd, UINT uMessage, WPARAM wParam,
                              LPARAM lParam)
{
    if (const std::optional<LRESULT> result = HandleMessage_Table(object, entries, uMessage, wParam, lParam))
    {
        return *result;
    }
    return DefWindowProcW(hWnd, uMessage, wParam, lParam);
}
