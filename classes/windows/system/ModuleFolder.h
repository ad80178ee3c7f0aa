#pragma once

#include "classes/core/CWString.h"

// The folder of the program's own file, with its last backslash; empty if the system gives no path with one.
CWString GetModuleFolder();
