#pragma once

#include <fstream>
#include <string>

// Opens a file for reading as it is, byte for byte; sPath is UTF-8. Throws CHeadlessError naming the file where it
// does not exist, is a folder or may not be read.
std::ifstream OpenInputFile(const std::string& sPath);
