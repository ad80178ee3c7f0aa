#include "settings/FactorRules.h"

#include "classes/core/Dbl.h"
#include "classes/core/Percent.h"
#include "simulation/SimulationConstants.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

constexpr double c_dNotGiven = -1.0;

// Two of the three factors are given; the third one follows from them.
constexpr std::ptrdiff_t c_iGivenCount = 2;

std::optional<EnumFactorError> FindError(const CFactor& factor, EnumAtomColourMode eMode)
{
    if (!factor.HasValue() || factor.IsBelowZero())
    {
        return EnumFactorError::Invalid;
    }
    if (eMode == EnumAtomColourMode::Speed && factor.GetForm() == EnumFactorForm::Percentage)
    {
        return EnumFactorError::PercentageInSpeedMode;
    }
    return std::nullopt;
}

// Products of huge counts and percentages overflow a double; the nearest finite value means the same here.
double Saturate(double dValue)
{
    constexpr double c_dLargest = std::numeric_limits<double>::max();
    return std::clamp(dValue, -c_dLargest, c_dLargest);
}

// A count of atoms: a share of all of them, or the number itself.
bool InterpretFactor_Fixed(const CFactor& factor, std::optional<std::int32_t> countAtoms, double& dCount)
{
    switch (factor.GetForm())
    {
    case EnumFactorForm::Unset:
        dCount = c_dNotGiven;
        return true;
    case EnumFactorForm::NotNumber:
        return false;
    case EnumFactorForm::Percentage:
        if (!countAtoms)
        {
            return false;
        }
        dCount = Saturate(Dbl_Round(Saturate(*countAtoms * factor.GetValue() / c_dPercent), 0));
        return true;
    case EnumFactorForm::Number:
        dCount = Saturate(Dbl_Round(factor.GetValue(), 0));
        return true;
    }
    return false;
}

bool InterpretFactor_Speed(const CFactor& factor, double& dMultiple)
{
    if (factor.HasValue())
    {
        dMultiple = factor.GetValue();
    }
    return factor.HasValue();
}

bool InterpretEach(EnumAtomColourMode eMode, const CFactors& factors, std::optional<std::int32_t> countAtoms,
                   CFactorValues& values)
{
    bool bSuccess = true;
    switch (eMode)
    {
    case EnumAtomColourMode::Speed:
        // The middle class lies between the other two and has no factor of its own.
        values[1] = c_dNotGiven;
        bSuccess = InterpretFactor_Speed(factors[0], values[0]);
        return InterpretFactor_Speed(factors[2], values[2]) && bSuccess;
    case EnumAtomColourMode::Fixed:
        for (std::size_t u = 0; u < factors.size(); ++u)
        {
            bSuccess = InterpretFactor_Fixed(factors[u], countAtoms, values[u]) && bSuccess;
        }
        return bSuccess;
    }
    return false;
}

// The remainder is the number of atoms that the two given classes leave. It is below zero if they ask for more atoms
// than there are, so that the classes add up to the atoms even then. A given number below zero counts as not given.
bool Complete(std::int32_t countAtoms, CFactorValues& values)
{
    const auto isGiven = [](double dValue) { return Dbl_IsBiggerEqual(dValue, 0.0, c_dEpsilon); };
    if (std::count_if(values.begin(), values.end(), isGiven) != c_iGivenCount)
    {
        return false;
    }
    const auto leftOut = std::find_if_not(values.begin(), values.end(), isGiven);
    std::int64_t iRemainder = countAtoms;
    for (auto value = values.begin(); value != values.end(); ++value)
    {
        iRemainder -= value == leftOut ? 0 : TruncateToInt32(*value);
    }
    *leftOut = static_cast<double>(iRemainder);
    return true;
}

} // namespace

std::vector<CFactorError> CheckFactors(const CFactors& factors, EnumAtomColourMode eMode)
{
    std::vector<CFactorError> errors;
    for (std::size_t u = 0; u < factors.size(); ++u)
    {
        const std::optional<EnumFactorError> error = factors[u].IsSet() ? FindError(factors[u], eMode) : std::nullopt;
        if (error)
        {
            errors.push_back({*error, u});
        }
    }
    const auto isSet = [](const CFactor& factor) { return factor.IsSet(); };
    if (errors.empty() && std::count_if(factors.begin(), factors.end(), isSet) != c_iGivenCount)
    {
        errors.push_back({EnumFactorError::NotExactlyTwoSet, 0});
    }
    return errors;
}

bool InterpretFactors(EnumAtomColourMode eMode, const CFactors& factors, std::optional<std::int32_t> countAtoms,
                      CFactorValues& values)
{
    return InterpretEach(eMode, factors, countAtoms, values) && Complete(countAtoms.value_or(0), values);
}

std::int32_t TruncateToInt32(double dValue)
{
    if (std::isnan(dValue))
    {
        return 0;
    }
    constexpr double c_dLowest = std::numeric_limits<std::int32_t>::min();
    constexpr double c_dHighest = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(dValue, c_dLowest, c_dHighest));
}
