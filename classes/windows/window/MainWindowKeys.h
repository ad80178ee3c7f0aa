#pragma once

#include <windows.h>

// The keys in CLibrarySettings::mainWindowKeys mean the main window wherever the focus is. They take effect when they
// are released.
//
// Sends such a key to hMain when msg has it for a window inside hMain, and returns true, so that the message is not
// dispatched. False leaves the message alone, also where the control wants the key for itself: it then answers
// WM_GETDLGCODE with DLGC_WANTMESSAGE.
bool ForwardMainWindowKey(HWND hMain, const MSG& msg);
