#include "tests/fuzz/PlainNumber.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

namespace
{

constexpr std::wstring_view c_sBlanks = L" \t";
constexpr std::wstring_view c_sDigits = L"0123456789";

std::wstring_view TrimLeft(std::wstring_view sText)
{
    sText.remove_prefix(std::min(sText.find_first_not_of(c_sBlanks), sText.size()));
    return sText;
}

std::wstring_view TrimRight(std::wstring_view sText)
{
    return sText.substr(0, sText.find_last_not_of(c_sBlanks) + 1);
}

std::wstring_view DropSign(std::wstring_view sText)
{
    const bool bSigned = sText.starts_with(L'+') || sText.starts_with(L'-');
    return sText.substr(bSigned ? 1 : 0);
}

bool AreDigits(std::wstring_view sText)
{
    return sText.find_first_not_of(c_sDigits) == std::wstring_view::npos;
}

// The number without the blanks around it and without its percent sign.
std::wstring_view GetCore(std::wstring_view sText)
{
    std::wstring_view sCore = TrimRight(TrimLeft(sText));
    sCore.remove_suffix(sCore.ends_with(L'%') ? 1 : 0);
    return sCore;
}

std::wstring_view GetMantissa(std::wstring_view sCore)
{
    return sCore.substr(0, sCore.find_first_of(L"eE"));
}

bool IsMantissa(std::wstring_view sText)
{
    const std::size_t uPoint = sText.find(L'.');
    const bool bPoint = uPoint != std::wstring_view::npos;
    const std::wstring_view sFraction = bPoint ? sText.substr(uPoint + 1) : std::wstring_view();
    return AreDigits(sText.substr(0, uPoint)) && AreDigits(sFraction) && sText.size() > (bPoint ? 1U : 0U);
}

bool CanBecomeNumber(std::wstring_view sText)
{
    return IsPlainNumber(sText) || IsPlainNumber(std::wstring(sText) + L'0');
}

} // namespace

bool IsPlainNumber(std::wstring_view sText)
{
    const std::wstring_view sCore = DropSign(GetCore(sText));
    const std::wstring_view sMantissa = GetMantissa(sCore);
    if (sMantissa.size() == sCore.size())
    {
        return IsMantissa(sMantissa);
    }
    const std::wstring_view sExponent = DropSign(sCore.substr(sMantissa.size() + 1));
    return IsMantissa(sMantissa) && !sExponent.empty() && AreDigits(sExponent);
}

std::optional<double> ReadPlainNumber(std::wstring_view sText)
{
    if (!IsPlainNumber(sText))
    {
        return std::nullopt;
    }
    const std::wstring_view sCore = GetCore(sText);
    const double dValue = std::strtod(std::string(sCore.begin(), sCore.end()).c_str(), nullptr);
    constexpr double c_dLargest = std::numeric_limits<double>::max();
    return std::clamp(dValue, -c_dLargest, c_dLargest);
}

std::size_t FindPlainErrorPosition(std::wstring_view sText)
{
    std::size_t uGood = 0;
    std::size_t uBad = sText.size() + 1;
    while (uBad - uGood > 1)
    {
        const std::size_t uMiddle = (uGood + uBad) / 2;
        (CanBecomeNumber(sText.substr(0, uMiddle)) ? uGood : uBad) = uMiddle;
    }
    return uGood;
}

std::size_t CountPlainDigits(std::wstring_view sText)
{
    const std::wstring_view sMantissa = GetMantissa(GetCore(sText));
    return static_cast<std::size_t>(std::count_if(
        sMantissa.begin(), sMantissa.end(), [](wchar_t c) { return c_sDigits.find(c) != std::wstring_view::npos; }));
}
