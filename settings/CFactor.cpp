#include "settings/CFactor.h"

#include "classes/core/StringToNumber.h"

#include <cmath>
#include <utility>

namespace
{

// The form of a text that the parser accepts. The parser allows blanks after the percent sign, but the settings file
// would lose them, and the same text would be a percentage after the next start: such a text is not a number.
EnumFactorForm GetFormOfNumber(const CWString& sText)
{
    const std::size_t uSign = sText.Get().find(L'%');
    if (uSign == std::wstring::npos)
    {
        return EnumFactorForm::Number;
    }
    return uSign + 1 == sText.Get().size() ? EnumFactorForm::Percentage : EnumFactorForm::NotNumber;
}

// A double rounds the smallest numbers to zero. Only then is the text parsed with more digits.
bool IsBelowZeroAsTyped(const CWString& sText, double dValue)
{
    if (dValue != 0.0 || !std::signbit(dValue))
    {
        return dValue < 0.0;
    }
    CBigFloat number;
    return StringToNumber(sText.Get(), &number, true, nullptr) && number < 0;
}

} // namespace

CFactor::CFactor(CWString sText) : m_sText(std::move(sText))
{
    if (m_sText.IsEmpty())
    {
        return;
    }
    double dValue = 0.0;
    const bool bParsed = StringToNumber(m_sText.Get(), &dValue, EnumNumberType::Double, true, nullptr);
    m_eForm = bParsed ? GetFormOfNumber(m_sText) : EnumFactorForm::NotNumber;
    if (HasValue())
    {
        m_dValue = dValue;
        m_bBelowZero = IsBelowZeroAsTyped(m_sText, m_dValue);
    }
}
