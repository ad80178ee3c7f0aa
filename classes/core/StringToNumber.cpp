#include "classes/core/StringToNumber.h"

#include "classes/core/DecimalText.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace
{

// No double has a power of ten beyond this in either direction; such numbers need no digit-by-digit conversion.
constexpr std::int64_t c_llExponentLimit = 400;

double ToDouble(const CDecimalText& text)
{
    const double dSign = text.bNegative ? -1.0 : 1.0;
    if (text.llExponent > c_llExponentLimit)
    {
        return dSign * std::numeric_limits<double>::max();
    }
    if (text.sDigits.empty() || text.llExponent < -c_llExponentLimit)
    {
        return dSign * 0.0;
    }
    const std::string sText = ToScientificText(text);
    double dResult = 0.0;
    const std::from_chars_result result = std::from_chars(sText.data(), sText.data() + sText.size(), dResult);
    if (result.ec == std::errc::result_out_of_range)
    {
        return dSign * (text.llExponent > 0 ? std::numeric_limits<double>::max() : 0.0);
    }
    return dResult;
}

// Parses the text and stores the number that convert makes of its parts.
template<class T, class F>
bool Convert(std::wstring_view sText, T* pOut, bool bClearOnFailure, unsigned* pErrorPosition, F&& convert)
{
    CDecimalText text;
    std::size_t uErrorPosition = 0;
    if (ScanDecimalText(sText, &text, &uErrorPosition))
    {
        *pOut = convert(text);
        return true;
    }
    if (bClearOnFailure)
    {
        *pOut = T{};
    }
    if (pErrorPosition != nullptr)
    {
        *pErrorPosition = static_cast<unsigned>(uErrorPosition);
    }
    return false;
}

} // namespace

bool StringToNumber(std::wstring_view sText, CBigFloat* pOut, bool bClearOnFailure, unsigned* pErrorPosition)
{
    return Convert(sText, pOut, bClearOnFailure, pErrorPosition,
                   [](const CDecimalText& text) { return CBigFloat(text); });
}

bool StringToNumber(std::wstring_view sText, double* pOut, EnumNumberType eType, bool bClearOnFailure,
                    unsigned* pErrorPosition)
{
    if (eType != EnumNumberType::Double)
    {
        return false;
    }
    return Convert(sText, pOut, bClearOnFailure, pErrorPosition, ToDouble);
}
