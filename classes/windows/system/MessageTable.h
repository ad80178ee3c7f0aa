#pragma once

#include <windows.h>

#include <optional>

// A window procedure as data: one row per message, one small handler per row.

// A handler returns the result of a message, or nullopt to leave it to the system's default.
template<class T>
struct CMessageEntry
{
    UINT uMessage;
    std::optional<LRESULT> (T::*pHandler)(WPARAM, LPARAM);
};

// The answer of the message's row: nullopt if there is no row or its handler returns nullopt. The first row of a
// message counts. Tables have a dozen rows: walking them costs less than hashing.
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

// The same for a window procedure: DefWindowProcW answers the messages that the table does not.
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
