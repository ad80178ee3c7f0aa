#pragma once

#include "tests/endtoend/CDrivenProgram.h"
#include "tests/endtoend/StatisticsLine.h"

#include <windows.h>

#include <cstdint>
#include <string>

// A simulated user of a running Kinetarium, in another process: it uses only the screen, the mouse and the keyboard.
// Every method throws std::runtime_error with the reason if the program does not respond in time.
class CKinetariumUser
{
public:
    // Waits until the main window exists.
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
    // Clicks into the world at a point relative to its upper left corner; does not wait.
    void ClickWorld(POINT point) const;
    void ClickWorldMiddle() const;
    // Moves the mouse onto the title bar, where no control reacts to it.
    void RestMouse() const;
    // Presses a key while the window is in front.
    void PressKeyInWindow(WORD uKey) const;
    // Waits for a statistics line whose number of iterations is not `uKnown`.
    CStatistics WaitForStatistics(std::uint64_t uKnown) const;
    // Asks the window to close, like its close button; does not wait.
    void Close() const;

private:
    void PressButton(const wchar_t* sBefore, const wchar_t* sAfter) const;

    const CDrivenProgram& m_program;
    HWND m_hMain = nullptr;
    HWND m_hStatusBar = nullptr;
    HWND m_hWorldView = nullptr;
    HWND m_hButton = nullptr;
};
