#include "classes/core/CBigFloat.h"

#include "classes/core/DecimalText.h"

#include <algorithm>
#include <boost/multiprecision/cpp_dec_float.hpp>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace
{

constexpr unsigned c_uDigits = 100;
constexpr std::int64_t c_llExponentLimit = 1'000'000;

using Decimal = boost::multiprecision::number<boost::multiprecision::cpp_dec_float<c_uDigits, std::int32_t>,
                                              boost::multiprecision::et_off>;

constexpr double c_dLargest = std::numeric_limits<double>::max();

Decimal ToDecimal(double dValue)
{
    if (std::isnan(dValue))
    {
        return Decimal(0);
    }
    return Decimal(std::clamp(dValue, -c_dLargest, c_dLargest));
}

Decimal ToDecimal(CDecimalText text)
{
    if (text.llExponent < -c_llExponentLimit)
    {
        return Decimal(0);
    }
    if (text.llExponent >= c_llExponentLimit)
    {
        text.sDigits = "1";
        text.llExponent = c_llExponentLimit;
    }
    return Decimal(ToScientificText(text));
}

std::strong_ordering ToOrdering(int iComparison)
{
    return iComparison <=> 0;
}

} // namespace

struct CBigFloat::CNumber
{
    Decimal value;
};

CBigFloat::CBigFloat() noexcept = default;
CBigFloat::CBigFloat(double dValue) : m_pNumber(new CNumber{ToDecimal(dValue)}) {}
CBigFloat::CBigFloat(const CDecimalText& text) : m_pNumber(new CNumber{ToDecimal(text)}) {}
CBigFloat::CBigFloat(const CBigFloat& other) : m_pNumber(other.m_pNumber ? new CNumber(*other.m_pNumber) : nullptr) {}
CBigFloat::CBigFloat(CBigFloat&& other) noexcept = default;
CBigFloat& CBigFloat::operator=(CBigFloat&& other) noexcept = default;
CBigFloat::~CBigFloat() = default;

CBigFloat& CBigFloat::operator=(const CBigFloat& other)
{
    if (this != &other)
    {
        *this = CBigFloat(other);
    }
    return *this;
}

const CBigFloat::CNumber& CBigFloat::GetNumber() const
{
    static const CNumber zero{Decimal(0)};
    return m_pNumber ? *m_pNumber : zero;
}

double CBigFloat::ToDouble() const
{
    // Converted through text: arithmetic would not always round a decimal to the nearest double.
    const Decimal& value = GetNumber().value;
    const std::string sText = value.str(std::numeric_limits<Decimal>::max_digits10, std::ios_base::scientific);
    double dResult = 0.0;
    const std::from_chars_result result = std::from_chars(sText.data(), sText.data() + sText.size(), dResult);
    if (result.ec != std::errc::result_out_of_range)
    {
        return dResult;
    }
    const bool bLarge = abs(value) > 1;
    return std::copysign(bLarge ? c_dLargest : 0.0, value.sign() < 0 ? -1.0 : 1.0);
}

bool CBigFloat::operator==(const CBigFloat& other) const
{
    return GetNumber().value.compare(other.GetNumber().value) == 0;
}

bool CBigFloat::operator==(int iOther) const
{
    return GetNumber().value.compare(Decimal(iOther)) == 0;
}

std::strong_ordering CBigFloat::operator<=>(const CBigFloat& other) const
{
    return ToOrdering(GetNumber().value.compare(other.GetNumber().value));
}

std::strong_ordering CBigFloat::operator<=>(int iOther) const
{
    return ToOrdering(GetNumber().value.compare(Decimal(iOther)));
}
