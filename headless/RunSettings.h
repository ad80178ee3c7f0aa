#pragma once

#include "classes/core/CColour.h"
#include "classes/core/CSize.h"
#include "headless/COptions.h"
#include "simulation/EnumAtomColourMode.h"
#include "view/ColourRules.h"

#include <cstdint>
#include <string>

class CIniText;

// What a run is made of once defaults, settings file and command line have been put together.
struct CRunSettings
{
    CSize<int> world;           // 10..9,999 each
    std::int32_t atoms{};       // 1..1,000,000; does not count where a state is loaded
    std::uint8_t minRadius{};   // 1..32
    std::uint8_t maxRadius{};   // minRadius..32
    EnumAtomColourMode eMode{}; // of the pictures, as is all that follows
    CClassColours colours{};
    CFactorTexts factors; // exactly two are given, and they suit the mode
    ColourRef background{};
};

// Options win over the settings file, which wins over the defaults. Throws CUsageError for what the command line has
// made wrong and CHeadlessError, with file and line, for a value of the file that counts and is out of range. sFile is
// the file's name in messages; pFile is null where no settings file was named.
CRunSettings ResolveSettings(const COptions& options, const std::string& sFile, const CIniText* pFile);

// The same, reading the file that the options name.
CRunSettings ResolveSettings(const COptions& options);
