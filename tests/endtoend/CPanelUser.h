#pragma once

#include "tests/endtoend/CKinetariumUser.h"

#include <windows.h>

#include <string>

// The rows of the settings panel, from the top.
enum class EnumPanelRow
{
    WorldHeading,
    Width,
    Height,
    BackgroundColour,
    FirstDivider,
    AtomsHeading,
    TotalAtoms,
    MinRadius,
    MaxRadius,
    SecondDivider,
    ColourMode,
    Colour1,
    Factor1,
    Colour2,
    Factor2,
    Colour3,
    Factor3,
};

// A message box in front of the main window.
struct CSeenMessage
{
    HWND hWindow = nullptr;
    std::wstring title;
    std::wstring text;
    std::wstring button;
    int buttons = 0;
};

// A simulated user of the settings panel with real keys and clicks. Its methods throw std::runtime_error if the program
// does not respond in time, as in CKinetariumUser.
class CPanelUser
{
public:
    explicit CPanelUser(const CKinetariumUser& user);

    HWND GetPanel() const { return m_hPanel; }
    // The window of the row's control, which gets the focus.
    HWND GetControl(EnumPanelRow eRow) const;
    RECT GetControlRectangle(EnumPanelRow eRow) const;
    bool IsWhollyVisible(EnumPanelRow eRow) const;
    bool IsEnabled(EnumPanelRow eRow) const;
    std::wstring Read(EnumPanelRow eRow) const;
    int GetScrollPosition() const;
    bool IsListOpen() const;

    // The window of the program that has the keyboard focus.
    HWND GetFocus() const;
    void WaitForFocus(HWND hWindow) const;
    void WaitForText(EnumPanelRow eRow, const std::wstring& sText) const;

    void Click(EnumPanelRow eRow) const;
    // Clicks into an entry, selects its text, types the new text, and waits until the entry reads `sExpected`.
    void Enter(EnumPanelRow eRow, const std::wstring& sTyped, const std::wstring& sExpected) const;
    void Enter(EnumPanelRow eRow, const std::wstring& sTyped) const { Enter(eRow, sTyped, sTyped); }
    // Empties an entry.
    void Clear(EnumPanelRow eRow) const;
    // Opens the list and chooses "Fixed" or "Speed" with keys.
    void ChooseMode(const std::wstring& sMode) const;
    // Clicks Start; does not wait.
    void ClickStart() const;

    // The message box or dialog in front of the main window; null if there is none.
    HWND FindDialog() const;
    CSeenMessage WaitForMessage() const;
    void WaitUntilClosed(HWND hDialog) const;

private:
    const CKinetariumUser& m_user;
    HWND m_hPanel = nullptr;
};
