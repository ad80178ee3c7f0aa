#pragma once

// The instruction sets that the processor and the operating system together offer.
class CCpuCapabilities
{
public:
    // The machine's instruction sets, or only the baseline (x86-64 with SSE2).
    explicit CCpuCapabilities(bool bBaselineOnly = false);

    bool HasAvx2() const { return m_bAvx2; }

    // AVX-512 F with the extensions BW, DQ and VL, which every processor of interest has.
    bool HasAvx512() const { return m_bAvx512; }

private:
    bool m_bAvx2{};
    bool m_bAvx512{};
};
