#include "app/FactorMessages.h"

#include "settings/SettingRows.h"

namespace
{

// The title of a message about a factor is the label of its row of the panel.
const wchar_t* GetLabelKey(std::size_t uFactor)
{
    return GetSettingRow(c_FactorSettings[uFactor]).sPanelKey;
}

} // namespace

CFactorMessage GetFactorMessage(const CFactorError& error)
{
    const int factorNumber = static_cast<int>(error.uFactor) + 1;
    switch (error.eError)
    {
    case EnumFactorError::Invalid:
        return {L"Colour_factor_n_is_invalid", GetLabelKey(error.uFactor), factorNumber};
    case EnumFactorError::PercentageInSpeedMode:
        // The title is the label of factor 1 for every factor: users know this box by that title.
        return {L"Colour_factor_n_is_invalid_for_speed_mode", GetLabelKey(0), factorNumber};
    case EnumFactorError::NotExactlyTwoSet:
        break;
    }
    return {L"Need_exactly_two_out_of_three_factors", L"Error", 0};
}
