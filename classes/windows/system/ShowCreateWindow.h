#pragma once

#include <windows.h>

#include <string>

// Records in the debug log (null: none) that an object has made a window and which member keeps it. sExtra is appended
// if it is not null.
void ShowCreateWindow(std::wstring* pDebugLog, const void* pObject, const wchar_t* sClass, const wchar_t* sMember,
                      HWND hWnd, const wchar_t* sExtra);
