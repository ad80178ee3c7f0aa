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

// A message that stands before the main window.
struct CSeenMessage
{
    HWND hWindow = nullptr;
    std::wstring title;
    std::wstring text;
    std::wstring button;
    int buttons = 0;
};

// Someone who uses the settings panel with real keys and clicks. Like CKinetariumUser, its methods throw
// std::runtime_error if the program does not do its part in time.
class CPanelUser
{
public:
    explicit CPanelUser(const CKinetariumUser& user);

    HWND GetPanel() const { return m_hPanel; }
    // The window of the row's control, which takes the focus.
    HWND GetControl(EnumPanelRow eRow) const;
    RECT GetControlRectangle(EnumPanelRow eRow) const;
    bool IsWhollyVisible(EnumPanelRow eRow) const;
    bool IsEnabled(EnumPanelRow eRow) const;
    std::wstring Read(EnumPanelRow eRow) const;
    int GetScrollPosition() const;
    bool IsListOpen() const;

    // The window of the program that has the keyboard.
    HWND GetFocus() const;
    void WaitForFocus(HWND hWindow) const;
    void WaitForText(EnumPanelRow eRow, const std::wstring& sText) const;

    void Click(EnumPanelRow eRow) const;
    // Clicks into an entry, selects what it holds and types over it, and waits until it reads `sExpected`.
    void Enter(EnumPanelRow eRow, const std::wstring& sTyped, const std::wstring& sExpected) const;
    void Enter(EnumPanelRow eRow, const std::wstring& sTyped) const { Enter(eRow, sTyped, sTyped); }
    // Empties an entry.
    void Clear(EnumPanelRow eRow) const;
    // Opens the list and chooses "Fixed" or "Speed" in it by keys.
    void ChooseMode(const std::wstring& sMode) const;
    // Clicks Start and waits for nothing.
    void ClickStart() const;

    // A box of the program that is open before the main window; null if there is none.
    HWND FindDialog() const;
    CSeenMessage WaitForMessage() const;
    void WaitUntilClosed(HWND hDialog) const;

private:
    const CKinetariumUser& m_user;
    HWND m_hPanel = nullptr;
};
