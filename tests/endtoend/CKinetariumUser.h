#pragma once

#include "tests/endtoend/CDrivenProgram.h"
#include "tests/endtoend/StatisticsLine.h"

#include <windows.h>

#include <cstdint>
#include <string>

// Someone who sits before a running Kinetarium, and sees and does what a person can: all through the screen, the mouse
// and the keyboard, and from another process. Every method throws std::runtime_error with the reason if the program
// does not do its part in time.
class CKinetariumUser
{
public:
    // Waits until the main window is there.
    explicit CKinetariumUser(const CDrivenProgram& program);

    HWND GetMainWindow() const { return m_hMain; }
    HWND GetStatusBar() const { return m_hStatusBar; }
    HWND GetWorldView() const { return m_hWorldView; }
    HWND GetButton() const { return m_hButton; }
    std::wstring GetButtonText() const;
    std::wstring GetStatusText() const;
    RECT GetWindowRectangle() const;
    // The part of the screen where the world is drawn.
    RECT GetWorldRectangle() const;

    // Clicks the button that reads "Start", and waits until it reads "Stop".
    void PressStart() const;
    // Clicks the button that reads "Stop", and waits until it reads "Start".
    void PressStop() const;
    // Clicks into the world, at a point counted from its upper left corner; waits for nothing.
    void ClickWorld(POINT point) const;
    void ClickWorldMiddle() const;
    // Moves the mouse onto the title bar, where no control reacts to it.
    void RestMouse() const;
    // Presses a key while the window is in front.
    void PressKeyInWindow(WORD uKey) const;
    // Waits for a statistics line whose number of iterations is not `uKnown`.
    CStatistics WaitForStatistics(std::uint64_t uKnown) const;
    // Asks the window to close, as its close button does, and waits for nothing.
    void Close() const;

private:
    void PressButton(const wchar_t* sBefore, const wchar_t* sAfter) const;

    const CDrivenProgram& m_program;
    HWND m_hMain = nullptr;
    HWND m_hStatusBar = nullptr;
    HWND m_hWorldView = nullptr;
    HWND m_hButton = nullptr;
};
