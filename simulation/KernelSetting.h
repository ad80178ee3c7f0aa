#pragma once

#include <cstdint>
#include <string_view>

// Which kernels a process may use.
enum class EnumKernelSetting : std::uint8_t
{
    Any,
    Baseline,
    Avx2,
    Avx512
};

// The setting of the environment variable KINETARIUM_CPU, for tests, for measurements and for tools that do not know
// the newer instruction sets.
EnumKernelSetting GetKernelSetting();

// The value of that variable: "baseline", "avx2" or "avx512", letter for letter; any other means no choice.
EnumKernelSetting ParseKernelSetting(std::wstring_view sSetting);
