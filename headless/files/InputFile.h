#pragma once

#include <fstream>
#include <string>

// Opens a file for reading its bytes unchanged; sPath is UTF-8. Throws CHeadlessError naming the file when it does not
// exist, is a folder or may not be read.
std::ifstream OpenInputFile(const std::string& sPath);
