#include "settings/CFactor.h"

#include "classes/core/StringToNumber.h"

#include <cmath>
#include <utility>

namespace
{

// Searches only for the first "%": a text with another one before its end is not a number anyway.
bool EndsWithFirstPercent(const CWString& sText)
{
    return sText.Find(L"%") == sText.GetLength() - 1;
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
    if (!StringToNumber(m_sText.Get(), &m_dValue, EnumNumberType::Double, true, nullptr))
    {
        m_eForm = EnumFactorForm::NotNumber;
        return;
    }
    m_eForm = EndsWithFirstPercent(m_sText) ? EnumFactorForm::Percentage : EnumFactorForm::Number;
    m_bBelowZero = IsBelowZeroAsTyped(m_sText, m_dValue);
}
