#include "classes/core/Percent.h"
#include "settings/FactorRules.h"
#include "simulation/SimulationConstants.h"
#include "tests/fuzz/CFuzzInput.h"
#include "tests/fuzz/FuzzTarget.h"
#include "tests/fuzz/PlainNumber.h"
#include "view/ColourRules.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>
#include <vector>

namespace
{

constexpr double c_dEpsilonOfFactors = 1e-10;

// Reads the sign from the text, because a double rounds the smallest numbers below zero to zero.
bool IsBelowZero(const CWString& sText)
{
    const std::size_t uSign = sText.Get().find(L'-');
    const std::size_t uExponent = std::min(sText.Get().find_first_of(L"eE"), sText.Get().size());
    const std::wstring sMantissa = sText.Get().substr(0, uExponent);
    return uSign < uExponent && sMantissa.find_first_of(L"123456789") != std::wstring::npos;
}

// With so few digits in the exponent, no number is rounded to zero.
bool HasShortExponent(const CWString& sText)
{
    constexpr std::size_t c_uMostDigits = 5;
    const std::size_t uExponent = std::min(sText.Get().find_first_of(L"eE"), sText.Get().size());
    return sText.Get().size() - uExponent <= c_uMostDigits;
}

bool IsPercentText(const CWString& sText)
{
    return !sText.IsEmpty() && sText.Get().find(L'%') + 1 == sText.Get().size();
}

// A percent sign ends the text of a factor; behind that of a plain number there may be blanks.
bool IsFactorNumber(const CWString& sText)
{
    const bool bPercent = sText.Get().find(L'%') != std::wstring::npos;
    return IsPlainNumber(sText) && (!bPercent || IsPercentText(sText));
}

std::optional<double> ReadFactorNumber(const CWString& sText)
{
    return IsFactorNumber(sText) ? ReadPlainNumber(sText) : std::nullopt;
}

std::optional<EnumFactorError> GetExpectedError(const CWString& sText, EnumAtomColourMode eMode)
{
    if (!IsFactorNumber(sText) || IsBelowZero(sText))
    {
        return EnumFactorError::Invalid;
    }
    const bool bRefused = eMode == EnumAtomColourMode::Speed && IsPercentText(sText);
    return bRefused ? std::optional(EnumFactorError::PercentageInSpeedMode) : std::nullopt;
}

// The errors are those of the single factors, or the one about the number of factors.
bool CheckErrors(const CFactors& factors, EnumAtomColourMode eMode)
{
    const std::vector<CFactorError> errors = CheckFactors(factors, eMode);
    std::size_t uError = 0;
    std::size_t uGiven = 0;
    for (std::size_t u = 0; u < factors.size(); ++u)
    {
        const CWString& sText = factors[u].GetText();
        uGiven += sText.IsEmpty() ? 0 : 1;
        const std::optional<EnumFactorError> expected = sText.IsEmpty() ? std::nullopt : GetExpectedError(sText, eMode);
        if (expected)
        {
            Require(uError < errors.size(), "a bad factor has no error");
            Require(errors[uError] == CFactorError{*expected, u}, "a bad factor has the wrong error");
            ++uError;
        }
    }
    if (uError == 0 && uGiven != 2)
    {
        Require(errors.size() == 1 && errors.front() == CFactorError{EnumFactorError::NotExactlyTwoSet, 0},
                "the number of factors is not checked");
        return false;
    }
    Require(errors.size() == uError, "a good factor has an error");
    return errors.empty();
}

// The value of a given factor in fixed mode: a whole number of atoms, or the rounded share of all.
double GetExpectedCount(const CWString& sText, std::int32_t count)
{
    const double dValue = *ReadPlainNumber(sText);
    const double dCount = IsPercentText(sText) ? count * dValue / c_dPercent : dValue;
    constexpr double c_dLargest = std::numeric_limits<double>::max();
    return std::round(std::clamp(dCount, -c_dLargest, c_dLargest));
}

void CheckFixed(const CFactors& factors, std::int32_t count)
{
    CColourSettings settings{};
    Require(InterpretFactors(EnumAtomColourMode::Fixed, factors, count, settings), "checked factors are refused");
    double dGiven = 0.0;
    double dLeftOver = 0.0;
    for (std::size_t u = 0; u < factors.size(); ++u)
    {
        const double dFactor = settings[u].dFactor;
        Require(std::isfinite(dFactor) && dFactor == std::trunc(dFactor), "a factor is not a whole number");
        if (factors[u].GetText().IsEmpty())
        {
            dLeftOver = dFactor;
        }
        else
        {
            Require(dFactor == GetExpectedCount(factors[u].GetText(), count), "a factor has the wrong value");
            dGiven += std::min(dFactor, static_cast<double>(std::numeric_limits<std::int32_t>::max()));
        }
    }
    Require(dLeftOver == count - dGiven, "the classes do not add up to the atoms");
    const CFixedRuns runs = GetFixedRuns(settings, count);
    Require(0 <= runs.a && runs.a <= runs.b && runs.b <= runs.count && runs.count == count,
            "the runs are out of order");
    if (dLeftOver >= 0.0)
    {
        Require(runs.a == settings[0].dFactor, "the first run has the wrong length");
        Require(runs.b - runs.a == settings[1].dFactor, "the second run has the wrong length");
        Require(runs.count - runs.b == settings[2].dFactor, "the third run has the wrong length");
    }
}

void CheckSpeed(const CFactors& factors, std::int32_t count)
{
    CColourSettings settings{};
    const bool bGood = InterpretFactors(EnumAtomColourMode::Speed, factors, count, settings);
    const std::optional<double> first = ReadFactorNumber(factors[0].GetText());
    const std::optional<double> third = ReadFactorNumber(factors[2].GetText());
    const bool bExpected = first && third && *first >= -c_dEpsilonOfFactors && *third >= -c_dEpsilonOfFactors;
    Require(bGood == bExpected, "the two outer factors are accepted or refused wrongly");
    Require(!first || settings[0].dFactor == *first, "factor 1 has the wrong value");
    Require(!third || settings[2].dFactor == *third, "factor 3 has the wrong value");
    Require(!bGood || settings[1].dFactor <= count, "the middle factor is above the number of atoms");
}

// For all texts: without an atom set a percentage is refused, and an unknown mode is refused.
void CheckRefusals(const CFactors& factors)
{
    CColourSettings settings{};
    const bool bPercentage = std::any_of(factors.begin(), factors.end(),
                                         [](const CFactor& factor) { return IsPercentText(factor.GetText()); });
    const bool bGood = InterpretFactors(EnumAtomColourMode::Fixed, factors, std::nullopt, settings);
    Require(!bGood || !bPercentage, "a percentage without an atom set is accepted");
    constexpr auto c_eUnknown = static_cast<EnumAtomColourMode>(2);
    Require(!InterpretFactors(c_eUnknown, factors, 1, settings), "an unknown mode is accepted");
}

} // namespace

// The input is a line with the number of atoms, and three lines with the factors as typed.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uCount)
{
    CFuzzInput input(pBytes, uCount);
    const std::int32_t count =
        static_cast<std::int32_t>(std::wcstol(input.TakeLine().c_str(), nullptr, 0) % (c_iMaxTotalAtoms + 1));
    const std::array<CWString, c_uColourClassCount> texts = {input.TakeLine(), input.TakeLine(), input.TakeLine()};
    if (count < 0 || !std::all_of(texts.begin(), texts.end(), HasShortExponent))
    {
        return 0;
    }
    const CFactors factors = {CFactor(texts[0]), CFactor(texts[1]), CFactor(texts[2])};
    if (CheckErrors(factors, EnumAtomColourMode::Fixed))
    {
        CheckFixed(factors, count);
    }
    CheckErrors(factors, EnumAtomColourMode::Speed);
    CheckSpeed(factors, count);
    CheckRefusals(factors);
    return 0;
}
