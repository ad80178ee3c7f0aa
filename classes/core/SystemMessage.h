#pragma once

#include <string>

using SystemMessageFunction = void (*)(const std::wstring& sText);

// Shows a text to the user without needing a window of the program: on Windows a system message box with the program's
// name as its title, elsewhere the standard error stream.
void ShowSystemMessage(const std::wstring& sText);

// Replaces how system messages are shown, for programs without a user and for tests. Null restores the usual way.
// Returns what was in force before, null for the usual way.
SystemMessageFunction SetSystemMessageFunction(SystemMessageFunction pFunction);
