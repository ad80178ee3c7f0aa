#include "view/ColourRules.h"

#include "classes/core/Dbl.h"
#include "classes/core/Percent.h"
#include "classes/core/StringToNumber.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

constexpr double c_dNotGiven = -1.0;
constexpr double c_dEpsilon = 1e-10;     // tolerance of every comparison of factors
constexpr std::size_t c_uGivenCount = 2; // factors that must be given; the third one follows from them

bool ParseNumber(const CWString& sText, double& dValue)
{
    return StringToNumber(sText.Get(), &dValue, EnumNumberType::Double, false, nullptr);
}

// Products of huge counts and percentages leave the range of a double; the nearest number in it means the same here.
double Saturate(double dValue)
{
    constexpr double c_dLargest = std::numeric_limits<double>::max();
    return std::clamp(dValue, -c_dLargest, c_dLargest);
}

bool IsPercentage(const CWString& sText)
{
    return !sText.IsEmpty() && sText.Find(L"%") == sText.GetLength() - 1;
}

// A count of atoms: empty = not given, "25%" = a share of all atoms, anything else = an absolute number.
bool ParseFixedFactor(const CWString& sText, std::optional<std::int32_t> countAtoms, double& dFactor)
{
    if (sText.IsEmpty())
    {
        dFactor = c_dNotGiven;
        return true;
    }
    const bool bPercentage = IsPercentage(sText);
    double dValue = 0.0;
    if ((bPercentage && !countAtoms) || !ParseNumber(sText, dValue))
    {
        return false;
    }
    if (bPercentage)
    {
        dValue = Saturate(*countAtoms * dValue / c_dPercent);
    }
    dFactor = Saturate(Dbl_Round(dValue, 0));
    return true;
}

bool ParseFactors_Speed(const CFactorTexts& texts, CColourSettings& settings)
{
    // The middle class lies between the two others and has no factor of its own.
    settings[1].dFactor = c_dNotGiven;
    const bool bSlow = ParseNumber(texts[0], settings[0].dFactor);
    const bool bFast = ParseNumber(texts[2], settings[2].dFactor);
    return bSlow && bFast;
}

bool ParseFactors_Fixed(const CFactorTexts& texts, std::optional<std::int32_t> countAtoms, CColourSettings& settings)
{
    bool bSuccess = true;
    for (std::size_t u = 0; u < c_uColourClassCount; ++u)
    {
        bSuccess = ParseFixedFactor(texts[u], countAtoms, settings[u].dFactor) && bSuccess;
    }
    return bSuccess;
}

bool ParseFactors(EnumAtomColourMode eMode, const CFactorTexts& texts, std::optional<std::int32_t> countAtoms,
                  CColourSettings& settings)
{
    switch (eMode)
    {
    case EnumAtomColourMode::Speed:
        return ParseFactors_Speed(texts, settings);
    case EnumAtomColourMode::Fixed:
        return ParseFactors_Fixed(texts, countAtoms, settings);
    }
    return false;
}

// The remainder is what the two given classes leave over. They may ask for more atoms than there are: then nothing is
// left.
bool CompleteFactors(std::int32_t countAtoms, CColourSettings& settings)
{
    const auto isGiven = [](const AtomColourSetting& setting) {
        return Dbl_IsBiggerEqual(setting.dFactor, 0.0, c_dEpsilon);
    };
    if (std::count_if(settings.begin(), settings.end(), isGiven) != c_uGivenCount)
    {
        return false;
    }
    const auto leftOut = std::find_if(settings.begin(), settings.end(), [](const AtomColourSetting& setting) {
        return Dbl_IsSmaller(setting.dFactor, 0.0, c_dEpsilon);
    });
    if (leftOut == settings.end())
    {
        return false;
    }
    std::int64_t iRemainder = countAtoms;
    for (auto setting = settings.begin(); setting != settings.end(); ++setting)
    {
        iRemainder -= setting == leftOut ? 0 : TruncateToInt32(setting->dFactor);
    }
    leftOut->dFactor = static_cast<double>(std::max<std::int64_t>(iRemainder, 0));
    return true;
}

} // namespace

bool InterpretFactors(EnumAtomColourMode eMode, const CFactorTexts& texts, std::optional<std::int32_t> countAtoms,
                      CColourSettings& settings)
{
    return ParseFactors(eMode, texts, countAtoms, settings) && CompleteFactors(countAtoms.value_or(0), settings);
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

CFixedRuns GetFixedRuns(const CColourSettings& settings, std::int32_t count)
{
    const std::int64_t iCount = std::max(count, 0);
    const std::int64_t iFirst = std::clamp<std::int64_t>(TruncateToInt32(settings[0].dFactor), 0, iCount);
    const std::int64_t iSecond = std::max(TruncateToInt32(settings[1].dFactor), 0);
    const std::int64_t iBoth = std::min(iFirst + iSecond, iCount);
    return CFixedRuns{static_cast<std::int32_t>(iFirst), static_cast<std::int32_t>(iBoth),
                      static_cast<std::int32_t>(iCount)};
}
