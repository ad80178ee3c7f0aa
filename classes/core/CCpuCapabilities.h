#pragma once

// Which instruction sets the processor and the operating system together offer.
class CCpuCapabilities
{
public:
    // What the machine offers, or only the baseline (x86-64 with SSE2).
    explicit CCpuCapabilities(bool bBaselineOnly = false);

    bool HasAvx2() const { return m_bAvx2; }

    // The foundation with the byte, doubleword and shorter-vector extensions, which every processor of interest has.
    bool HasAvx512() const { return m_bAvx512; }

private:
    bool m_bAvx2{};
    bool m_bAvx512{};
};
