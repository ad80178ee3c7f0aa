#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// A decimal number taken apart: plus or minus d.ddd... times 10^llExponent.
struct CDecimalText
{
    bool bNegative{};

    // Significant digits without leading zeros, '0' to '9'; empty for zero. Of a longer number the first
    // c_uMaxSignificantDigits are kept, and a last '1' stands for all that were cut off if any of them was not zero.
    std::string sDigits;

    // Power of ten of the first digit of sDigits.
    std::int64_t llExponent{};
};

// So many digits decide every rounding to a double: the longest exact midpoint between two doubles has 767.
constexpr std::size_t c_uMaxSignificantDigits = 800;

// Takes sText apart: blanks, sign, digits with at most one ".", exponent, one "%", blanks; all but the digits may be
// absent. False when it is anything else; *pErrorPosition is then the index of the first character that does not fit,
// or the text's length when it ends too early. Takes time in proportion to the text's length, whatever the exponent.
bool ScanDecimalText(std::wstring_view sText, CDecimalText* pOut, std::size_t* pErrorPosition);

// "-d.ddde+n" of the number, "0" or "-0" for zero; plain ASCII.
std::string ToScientificText(const CDecimalText& text);
