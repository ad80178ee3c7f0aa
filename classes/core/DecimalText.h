#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// A parsed decimal number: plus or minus d.ddd... times 10^llExponent.
struct CDecimalText
{
    bool bNegative{};

    // Significant digits without leading zeros, '0' to '9'; empty for zero. Of a longer number the first
    // c_uMaxSignificantDigits are kept. If any of the dropped digits is not zero, a '1' is appended for all of them.
    std::string sDigits;

    // Power of ten of the first digit of sDigits.
    std::int64_t llExponent{};
};

// This many digits decide every rounding to a double: the longest exact midpoint between two doubles has 767 digits.
constexpr std::size_t c_uMaxSignificantDigits = 800;

// Parses sText: blanks, sign, digits with at most one ".", exponent, one "%", blanks. All but the digits are optional.
// Returns false for any other text; *pErrorPosition is then the index of the first wrong character, or the text's
// length if it ends too early. The time is linear in the text's length and independent of the exponent.
bool ScanDecimalText(std::wstring_view sText, CDecimalText* pOut, std::size_t* pErrorPosition);

// "-d.ddde+n" of the number, "0" or "-0" for zero; plain ASCII.
std::string ToScientificText(const CDecimalText& text);
