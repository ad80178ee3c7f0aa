#pragma once

#include "headless/console/CConsole.h"

#include <string>
#include <vector>

// The whole program: arguments in UTF-8 without the program's name. Returns the exit code (see HeadlessError.h) after
// writing any error to standard error.
int HeadlessMain(const std::vector<std::string>& arguments, const CConsole& console);
