#pragma once

#include <windows.h>

#include <string>

// The text on the clipboard; empty if there is none or another program holds the clipboard.
std::wstring ReadClipboardText(HWND hOwner);
