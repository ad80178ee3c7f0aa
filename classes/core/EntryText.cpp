#include "classes/core/EntryText.h"

#include <algorithm>

namespace
{
constexpr wchar_t c_cFirstPrintable = L' ';
constexpr wchar_t c_cDelete = 0x7F;

bool IsDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}
} // namespace

bool EntryTakes(wchar_t cTyped, bool bDigitsOnly)
{
    if (bDigitsOnly)
    {
        return IsDigit(cTyped);
    }
    return cTyped >= c_cFirstPrintable && cTyped != c_cDelete;
}

std::wstring FilterPastedText(std::wstring_view sText, bool bDigitsOnly, std::size_t uRoom)
{
    std::wstring sResult;
    for (const wchar_t c : sText.substr(0, sText.find_first_of(L"\r\n")))
    {
        if (sResult.size() >= uRoom)
        {
            break;
        }
        if (EntryTakes(c, bDigitsOnly))
        {
            sResult += c;
        }
    }
    return sResult;
}

std::int64_t ReadLeadingNumber(std::wstring_view sText, std::int64_t iLow, std::int64_t iHigh)
{
    // A number above this exceeds every 32-bit range, and one more digit still cannot overflow.
    constexpr std::int64_t c_iEnough = 1'000'000'000'000;
    constexpr std::int64_t c_iDecimal = 10;
    std::size_t i = std::min(sText.find_first_not_of(L" \t"), sText.size());
    const bool bNegative = i < sText.size() && sText[i] == L'-';
    if (i < sText.size() && (sText[i] == L'-' || sText[i] == L'+'))
    {
        ++i;
    }
    std::int64_t iValue = 0;
    for (; i < sText.size() && IsDigit(sText[i]); ++i)
    {
        iValue = std::min(iValue * c_iDecimal + (sText[i] - L'0'), c_iEnough);
    }
    return std::clamp(bNegative ? -iValue : iValue, iLow, iHigh);
}
