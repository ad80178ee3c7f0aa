#pragma once

#include <string>

class CIniText;

// Refuses a file that the window would read without a word though it does not use all of it: one without the section of
// the settings or with two of them, lines before the first section, a key that is unknown or given twice, a line that
// is neither key=value nor a comment. Other sections may hold anything. sFile is the file's name in messages. Throws
// CHeadlessError with the line.
void CheckSettingsFile(const std::string& sFile, const CIniText& file);
