#include "classes/core/CCpuCapabilities.h"

CCpuCapabilities::CCpuCapabilities(bool bBaselineOnly)
{
    if (bBaselineOnly)
    {
        return;
    }
    // The compiler's runtime asks the processor and checks that the operating system saves the wider registers.
    __builtin_cpu_init();
    m_bAvx2 = __builtin_cpu_supports("avx2") != 0;
    m_bAvx512 = __builtin_cpu_supports("avx512f") != 0 && __builtin_cpu_supports("avx512bw") != 0 &&
                __builtin_cpu_supports("avx512dq") != 0 && __builtin_cpu_supports("avx512vl") != 0;
}
