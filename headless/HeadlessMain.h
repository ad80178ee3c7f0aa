#pragma once

#include "headless/CConsole.h"

#include <string>
#include <vector>

// The whole program: arguments in UTF-8 without the program's name. Returns the exit code (see HeadlessError.h); what
// went wrong has then been said on standard error.
int HeadlessMain(const std::vector<std::string>& arguments, const CConsole& console);
