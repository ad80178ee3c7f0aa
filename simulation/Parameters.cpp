#include "simulation/Parameters.h"

#include "classes/core/CBigFloat.h"
#include "classes/core/CWString.h"
#include "classes/core/StringToNumber.h"
#include "simulation/SimulationConstants.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace
{

constexpr std::array<const wchar_t*, c_uFactorCount> c_FactorLabels = {L"Colour_1_factor", L"Colour_2_factor",
                                                                       L"Colour_3_factor"};
constexpr std::size_t c_uRequiredFactors = 2;

// Limits to the upper bound first, then to the lower one.
template<class T>
T Clamp(T value, T low, T high)
{
    return std::max(low, std::min(value, high));
}

bool IsNumberNotBelowZero(const CWString& factor, CBigFloat& number)
{
    return StringToNumber(factor.Get(), &number, true, nullptr) && !(number < 0);
}

// Only the first "%" is looked at: a text with another one before its end is the parser's business.
bool EndsWithFirstPercent(const CWString& factor)
{
    const int position = factor.Find(L"%");
    return position >= 0 && position == factor.GetLength() - 1;
}

void CheckFactor(const CWString& factor, std::size_t uIndex, EnumAtomColourMode eMode, CBigFloat& number,
                 std::vector<CFactorMessage>& messages)
{
    const int factorNumber = static_cast<int>(uIndex) + 1;
    if (!IsNumberNotBelowZero(factor, number))
    {
        messages.push_back({L"Colour_factor_n_is_invalid", factorNumber, c_FactorLabels[uIndex]});
    }
    else if (eMode == EnumAtomColourMode::Speed && EndsWithFirstPercent(factor))
    {
        // Titled with the label of factor 1 whichever factor is at fault: users know this box by that title.
        messages.push_back({L"Colour_factor_n_is_invalid_for_speed_mode", factorNumber, c_FactorLabels[0]});
    }
}

} // namespace

int ClampTotalAtoms(int count)
{
    return Clamp(count, c_iMinTotalAtoms, c_iMaxTotalAtoms);
}

std::uint8_t ClampRadius(std::uint8_t radius)
{
    return Clamp(radius, c_uMinRadius, c_uMaxRadius);
}

int ClampWorldLength(int length)
{
    return Clamp(length, c_iMinWorldLength, c_iMaxWorldLength);
}

void SortRadii(std::uint8_t& minRadius, std::uint8_t& maxRadius)
{
    if (minRadius > maxRadius)
    {
        std::swap(minRadius, maxRadius);
    }
}

std::vector<CFactorMessage> CheckFactors(const std::array<CWString, c_uFactorCount>& factors, EnumAtomColourMode eMode)
{
    std::vector<CFactorMessage> messages;
    CBigFloat number;
    std::size_t uSet = 0;
    for (std::size_t uIndex = 0; uIndex < c_uFactorCount; ++uIndex)
    {
        if (!factors[uIndex].IsEmpty())
        {
            ++uSet;
            CheckFactor(factors[uIndex], uIndex, eMode, number, messages);
        }
    }
    if (messages.empty() && uSet != c_uRequiredFactors)
    {
        messages.push_back({L"Need_exactly_two_out_of_three_factors", 0, L"Error"});
    }
    return messages;
}
