#pragma once

#include "classes/core/CWString.h"

// The folder of the program's own file, with its last backslash; empty when the system tells no path with one.
CWString GetModuleFolder();
