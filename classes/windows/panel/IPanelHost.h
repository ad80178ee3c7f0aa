#pragma once

#include <windows.h>

#include <string>

// The services of the panel for its rows.
struct IPanelHost
{
    virtual ~IPanelHost() = default;
    virtual HWND Host_GetWindow() const = 0;
    virtual HINSTANCE Host_GetInstance() const = 0;
    virtual HFONT Host_GetFont(bool bBold) const = 0;
    virtual std::wstring* Host_GetDebugLog() const = 0;
    // Draws the background of a child of the panel, in the child's coordinates.
    virtual void Host_DrawBehind(HDC hDc, HWND hChild) = 0;
    // The row's control has got or lost the keyboard focus.
    virtual void Host_RowFocused(short iIndex, bool bFocused) = 0;
    // The wheel was turned over the panel or one of its children; false if there is nothing to scroll.
    virtual bool Host_ScrollByWheel(short iDelta) = 0;
};
