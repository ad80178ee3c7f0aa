#pragma once

#include <string>

using SystemMessageFunction = void (*)(const std::wstring& sText);

// Shows a text to the user without needing a window of the program: on Windows a system message box with the program's
// name as its title, elsewhere the standard error stream.
void ShowSystemMessage(const std::wstring& sText);

// Replaces the function that shows system messages, for programs without a user and for tests. Null restores the
// default. Returns the previous function, null for the default.
SystemMessageFunction SetSystemMessageFunction(SystemMessageFunction pFunction);
