#pragma once

#include <windows.h>

#include <string>

// More keyboard and mouse input; like UserInput.h, as input to the whole desktop.

// Presses a key while another one, such as VK_CONTROL or VK_SHIFT, is held down.
void PressKeyWith(WORD uHeld, WORD uKey);

// Types a text, with Shift if needed. Throws std::runtime_error if the keyboard has no such character.
void TypeText(const std::wstring& sText);

// Turns the wheel over a point of the screen by a number of notches; negative is towards the user.
void TurnWheel(POINT point, int iNotches);
