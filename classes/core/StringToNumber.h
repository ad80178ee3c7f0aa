#pragma once

#include "classes/core/CBigFloat.h"

#include <cstdint>
#include <string_view>

enum class EnumNumberType : std::uint8_t
{
    Double
};

// Reads a decimal number as a user types it: surrounding blanks (spaces and tabs), a sign, digits with at most one "."
// ("12.34", "0", ".5", "5."), an exponent ("1e-3"), and one trailing "%", which does not change the value. The decimal
// sign is always ".", whatever the locale. Not numbers: "", "%", "1,5", "0x10", "nan", "inf", "12abc", "1 2", "5%%".
//
// On failure the result is false, and *pOut stays unchanged or becomes zero if bClearOnFailure is true. pErrorPosition
// may be null; otherwise it gets, on failure only, the index of the first wrong character (the text's length if it ends
// too early).
bool StringToNumber(std::wstring_view sText, CBigFloat* pOut, bool bClearOnFailure, unsigned* pErrorPosition);

// The same for a double, correctly rounded. Values beyond the range of doubles saturate at the largest double of that
// sign; values nearer to zero than the smallest double give zero. Neither is a failure.
bool StringToNumber(std::wstring_view sText, double* pOut, EnumNumberType eType, bool bClearOnFailure,
                    unsigned* pErrorPosition);
