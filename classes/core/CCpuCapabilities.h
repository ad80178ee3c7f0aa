#pragma once

#include <string_view>

// The instruction sets that the processor and the operating system together offer. The environment variable
// KINETARIUM_CPU with the value "baseline" hides all but the baseline (x86-64 with SSE2), for tests and for tools that
// do not know the newer ones; it is read once per process.
class CCpuCapabilities
{
public:
    // The instruction sets that this process may use.
    CCpuCapabilities();

    // The machine's instruction sets, or only the baseline.
    explicit CCpuCapabilities(bool bBaselineOnly);

    bool HasAvx2() const { return m_bAvx2; }

    // AVX-512 F with the extensions BW, DQ and VL, which every processor of interest has.
    bool HasAvx512() const { return m_bAvx512; }

    bool operator==(const CCpuCapabilities&) const = default;

    // True for the value of KINETARIUM_CPU that forces the baseline.
    static bool IsBaselineSetting(std::wstring_view sSetting);

private:
    bool m_bAvx2{};
    bool m_bAvx512{};
};
