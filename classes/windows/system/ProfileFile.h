#pragma once

#include "classes/core/CWString.h"

// Writes CProfile's table to the file as UTF-8 text, the largest total time first. The file appears whole or not at
// all: the text first goes to a file beside it with ".tmp" added to its name. False if the file cannot be written; an
// older one is then unchanged. Throws only if there is no memory.
bool WriteProfile(const CWString& sPath);
