#pragma once

#include <string>
#include <windows.h>

// A message as the user sees it. The handle is null if none appeared.
struct CShownMessage
{
    HWND hWnd = nullptr;
    HWND hButton = nullptr;
    std::wstring sTitle;
    std::wstring sText;
    std::wstring sButton;
};

// Waits until the owner has a message box with a button, and reads it.
CShownMessage WaitForMessageBox(HWND hOwner);

// The visible popup of the owner, or null if there is none; does not wait.
HWND FindPopup(HWND hOwner);

// Presses the message's button and waits until the message is gone; false if it stays.
bool CloseMessageBox(const CShownMessage& message);
