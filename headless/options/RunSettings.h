#pragma once

#include "headless/options/COptions.h"
#include "settings/CSettings.h"

#include <string>

class CIniText;

// The settings of a run. The command line takes precedence over the settings file, and the file over the defaults.
// Every number is in its range, minRadius is not above maxRadius, and the factors suit the mode.
// sFile is the file's name in messages; pFile is null if no settings file was named.
// Throws CUsageError for an error of the command line, and CHeadlessError, with file and line, for a file that
// CheckSettingsFile refuses and for a used value of the file that is not allowed.
CSettings ResolveSettings(const COptions& options, const std::string& sFile, const CIniText* pFile);

// The same; reads the file that the options name.
CSettings ResolveSettings(const COptions& options);
