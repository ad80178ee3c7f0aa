#include "simulation/BaselineSetting.h"

#include "classes/core/EnvironmentText.h"

bool IsBaselineForced()
{
    return IsBaselineSetting(GetEnvironmentText("KINETARIUM_CPU").value_or(std::wstring()));
}

bool IsBaselineSetting(std::wstring_view sSetting)
{
    return sSetting == L"baseline";
}
