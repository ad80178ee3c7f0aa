#pragma once

#include "settings/FactorRules.h"

// The message to the user about a factor: keys of the string table.
struct CFactorMessage
{
    const wchar_t* sTextKey;
    const wchar_t* sTitleKey;
    int factorNumber; // 1..3, for the "%i" of the text; 0 for a text without one
};

CFactorMessage GetFactorMessage(const CFactorError& error);
