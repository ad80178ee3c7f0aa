#pragma once

#include "classes/core/CBigFloat.h"

#include <cstdint>
#include <string_view>

enum class EnumNumberType : std::uint8_t
{
    Double
};

// Reads a decimal number as a user types it: blanks (spaces and tabs) around, a sign, digits with at most one "."
// ("12.34", "0", ".5", "5."), an exponent ("1e-3"), and one trailing "%", which does not change the value. The decimal
// sign is always ".", whatever the locale. Not numbers: "", "%", "1,5", "0x10", "nan", "inf", "12abc", "1 2", "5%%".
//
// False leaves *pOut as it was, or makes it zero when bClearOnFailure. pErrorPosition may be null; otherwise it gets,
// on failure only, the index of the first character that does not fit (the length of a text that ends too early).
bool StringToNumber(std::wstring_view sText, CBigFloat* pOut, bool bClearOnFailure, unsigned* pErrorPosition);

// The same for a double, correctly rounded. Beyond the range of doubles the result is the largest double of that sign,
// nearer to zero than the smallest it is zero: neither is a failure.
bool StringToNumber(std::wstring_view sText, double* pOut, EnumNumberType eType, bool bClearOnFailure,
                    unsigned* pErrorPosition);
