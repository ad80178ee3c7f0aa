#pragma once

#include <windows.h>

// The keys in CLibrarySettings::mainWindowKeys are for the main window, wherever the focus is. They take effect when
// they are released.
//
// If msg releases such a key in a window inside hMain, sends the key to hMain and returns true, so that the message is
// not dispatched. Otherwise returns false, also if the control wants the key for itself: it then answers WM_GETDLGCODE
// with DLGC_WANTMESSAGE.
bool ForwardMainWindowKey(HWND hMain, const MSG& msg);
