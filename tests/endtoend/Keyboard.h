#pragma once

#include <windows.h>

#include <string>

// More of what a person does with keyboard and mouse; like UserInput.h, as input of the whole desktop.

// Presses a key while another one, such as VK_CONTROL or VK_SHIFT, is held down.
void PressKeyWith(WORD uHeld, WORD uKey);

// Types a text of characters that the keyboard has, with Shift where it is needed. Throws std::runtime_error for
// others.
void TypeText(const std::wstring& sText);

// Turns the wheel over a point of the screen by a number of notches; negative ones towards the person.
void TurnWheel(POINT point, int iNotches);
