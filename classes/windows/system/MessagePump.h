#pragma once

#include <windows.h>

#include <functional>

// Sees each message before it is dispatched; true keeps it from being dispatched.
using MessageFilter = std::function<bool(const MSG&)>;

// Dispatches the messages that wait for the thread (hWnd null) or for one window and its children, without blocking.
// False once a quit message was seen by this thread. A quit that a nested pump takes is posted again, so that a
// system's own loop further out (a dialog, a moved window) ends too.
bool MessagePump_RunPending(HWND hWnd, const MessageFilter& filter);
