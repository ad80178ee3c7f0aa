#pragma once

#include <windows.h>

#include <functional>

// Gets each message before it is dispatched. True: the message is not dispatched.
using MessageFilter = std::function<bool(const MSG&)>;

// Dispatches the messages that wait for the thread (hWnd null) or for one window and its children, without blocking.
// False once this thread has seen a quit message: then it only answers the messages that other threads send. A quit
// that a nested pump takes is posted again, so that an outer loop of the system (a dialog, a moved window) ends too.
bool MessagePump_RunPending(HWND hWnd, const MessageFilter& filter);
