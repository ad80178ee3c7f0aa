#include "simulation/KernelSetting.h"

#include "classes/core/EnvironmentText.h"

EnumKernelSetting GetKernelSetting()
{
    return ParseKernelSetting(GetEnvironmentText("KINETARIUM_CPU").value_or(std::wstring()));
}

EnumKernelSetting ParseKernelSetting(std::wstring_view sSetting)
{
    if (sSetting == L"baseline")
    {
        return EnumKernelSetting::Baseline;
    }
    if (sSetting == L"avx2")
    {
        return EnumKernelSetting::Avx2;
    }
    return sSetting == L"avx512" ? EnumKernelSetting::Avx512 : EnumKernelSetting::Any;
}
