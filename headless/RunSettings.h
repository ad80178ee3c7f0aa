#pragma once

#include "headless/COptions.h"
#include "settings/CSettings.h"

#include <string>

class CIniText;

// The settings of a run, put together from the command line, the settings file and the defaults, each winning over the
// next. Every number is in its range, minRadius is not above maxRadius, and the factors suit the mode.
// sFile is the file's name in messages; pFile is null where no settings file was named.
// Throws CUsageError for what the command line has made wrong and CHeadlessError, with file and line, for a value of
// the file that counts and is out of range.
CSettings ResolveSettings(const COptions& options, const std::string& sFile, const CIniText* pFile);

// The same, reading the file that the options name.
CSettings ResolveSettings(const COptions& options);
